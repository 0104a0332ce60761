#include "simulation/SimNetwork.h"

#include "simulation/StoredFiles.h"
#include "simulation/ports/CorruptBytes.h"

namespace tarvel::sim {

namespace {

constexpr double kPatience = 60.0;         // seconds without a byte
constexpr double kLongestRequest = 600.0;  // seconds in all
constexpr double kQuickest = 0.02, kUsualSpread = 0.6;
constexpr int kStatusOK = 200, kNotFound = 404;
constexpr int kWrongStatus[] = {204, 206, 301, 304, 401, 403, 404, 410, 429, 500, 502, 503, 504};
constexpr std::string_view kPortal = "<!DOCTYPE html><html><head><title>Sign in</title></head></html>";

}  // namespace

SimNetwork::SimNetwork(SimWorld& world, SimServers& servers, SeededRandom random, const FaultRates& rates,
                       FaultCounters& counters, Alarms& alarms, Trace& trace)
    : world_(world),
      servers_(servers),
      random_(random),
      rates_(rates),
      counters_(counters),
      alarms_(alarms),
      trace_(trace) {}

void SimNetwork::mend() {
  mended_ = true;
  outageEnds_ = {};
}

std::size_t SimNetwork::groupOf(const std::string& key) const {
  return key.starts_with("rink-") ? 1 + key[5] % (kGroups - 1) : 0;
}

bool SimNetwork::draw(FaultClass faultClass) {
  const bool fires = random_.chance(rates_.of(faultClass)) && !mended_;
  if (fires) counters_.add(faultClass);
  return fires;
}

void SimNetwork::get(const std::string& url, Completion completion) {
  const std::string key = keyOfUrl(url);
  trace_.add('q', url, world_.seconds(), 0);
  if (++inFlight_[url] > 1) alarms_.ring(Alarm::twoFlights, url);
  if (requested) requested(url);
  servers_.advanceTo(world_.seconds());
  Reply reply = replyTo(key);
  const double latency = reply.latency;
  const std::uint64_t number = ++lastNumber_;
  auto arrival = world_.mainLoop().after(
      latency, [this, number, reply = std::move(reply)]() mutable { complete(number, std::move(reply)); });
  flights_.emplace(number, Flight{url, std::move(completion), std::move(arrival)});
}

void SimNetwork::complete(std::uint64_t number, Reply reply) {
  auto flight = flights_.extract(number);
  const std::string url = flight.mapped().url;
  if (--inFlight_[url] == 0) inFlight_.erase(url);
  const std::string key = keyOfUrl(url);
  const auto* response = std::get_if<HttpResponse>(&reply.result);
  trace_.add('r', url, world_.seconds(), response ? hashOf(response->body) + response->status : 1);
  inDamagedReply_ = reply.damaged;
  flight.mapped().completion(std::move(reply.result));
  inDamagedReply_ = false;
  if (delivered) delivered(key, reply.delivery);
}

SimNetwork::Reply SimNetwork::failure(FaultClass, double latency, const char* description) {
  return {HttpFailure{HttpFailure::Kind::transport, description}, latency, Delivery::failed, false};
}

SimNetwork::Reply SimNetwork::stored(const std::string& key, const Content& content, double latency) {
  if (!content) return {HttpResponse{kNotFound, {}}, latency, Delivery::failed, false};
  if (const auto damaged = damagedReply(key, *content, latency)) return *damaged;
  return {HttpResponse{kStatusOK, *content}, latency, Delivery::whole, false};
}

/// A body that isn't what the server holds.
SimNetwork::Reply SimNetwork::body(const std::string& key, Bytes bytes, double latency) {
  const std::uint64_t hash = hashOf(bytes);
  const bool good = readingOf(key, bytes) == Reading::good;
  servers_.noteAltered(key, hash, good);
  return {HttpResponse{kStatusOK, std::move(bytes)}, latency, good ? Delivery::altered : Delivery::failed,
          true};
}

std::optional<SimNetwork::Reply> SimNetwork::transportFault() {
  if (draw(FaultClass::refused))
    return failure(FaultClass::refused, 0.1 + 5 * random_.fraction(), "Connection refused");
  if (draw(FaultClass::reset))
    return failure(FaultClass::reset, 3 * random_.fraction(), "Connection reset by peer");
  if (draw(FaultClass::silent)) return failure(FaultClass::silent, kPatience, "The request timed out.");
  if (draw(FaultClass::endless))
    return failure(FaultClass::endless, 30 + 300 * random_.fraction(), "The reply is too large.");
  if (draw(FaultClass::redirectRing)) return failure(FaultClass::redirectRing, 2.0, "Too many redirects");
  if (draw(FaultClass::wrongStatus)) {
    const int status = kWrongStatus[random_.below(std::size(kWrongStatus))];
    return Reply{HttpResponse{status, {}}, random_.fraction(), Delivery::failed, false};
  }
  return std::nullopt;
}

std::optional<SimNetwork::Reply> SimNetwork::damagedReply(const std::string& key, const Bytes& content,
                                                          double latency) {
  if (content.empty()) return std::nullopt;
  if (draw(FaultClass::cut)) {
    // With the length told beforehand a cut is seen, without it the reply looks whole.
    if (random_.chance(0.5)) return failure(FaultClass::cut, latency, "The connection was closed.");
    return body(key, cutAt(content, random_.below(content.size())), latency);
  }
  if (draw(FaultClass::portalPage)) return body(key, Bytes(kPortal.begin(), kPortal.end()), latency);
  if (draw(FaultClass::flipped)) {
    Bytes damaged = content;
    for (std::uint64_t flips = 1 + random_.below(3); flips > 0; --flips)
      damaged[random_.below(damaged.size())] ^= static_cast<std::uint8_t>(1u << random_.below(8));
    return body(key, std::move(damaged), latency);
  }
  if (draw(FaultClass::padded)) {
    Bytes damaged = content;
    damaged.insert(damaged.end(), 1 + random_.below(64), static_cast<std::uint8_t>(random_.below(256)));
    return body(key, std::move(damaged), latency);
  }
  return std::nullopt;
}

SimNetwork::Reply SimNetwork::replyTo(const std::string& key) {
  if (world_.seconds() < outageEnds_[groupOf(key)]) {
    counters_.add(FaultClass::outage);
    return failure(FaultClass::outage, 1 + 40 * random_.fraction(), "No route to host");
  }
  if (const auto fault = transportFault()) return *fault;
  const double latency = draw(FaultClass::slow) ? kLongestRequest * random_.fraction()
                                                : kQuickest + kUsualSpread * random_.fraction();
  const FaultClass stale = isIndex(key) ? FaultClass::staleIndex : FaultClass::staleFiles;
  const std::uint64_t back = random_.next();
  if (random_.chance(rates_.of(stale)) && !mended_) {
    if (const Content old = servers_.older(key, back)) {
      counters_.add(stale);
      return stored(key, old, latency);
    }
  }
  return stored(key, servers_.current(key), latency);
}

}  // namespace tarvel::sim
