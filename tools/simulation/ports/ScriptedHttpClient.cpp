#include "simulation/ports/ScriptedHttpClient.h"

#include <algorithm>

namespace tarvel {

ScriptedHttpClient::ScriptedHttpClient(SimWorld& world) : world_(world) {
  setLatency(0.0);
}

void ScriptedHttpClient::get(const std::string& url, Completion completion) {
  requests_.push_back({url, world_.now(), world_.seconds()});
  const Request request = requests_.back();
  maxInFlightOfOneUrl_ = std::max(maxInFlightOfOneUrl_, ++inFlightByUrl_[url]);

  Reply reply = replyTo(request);
  const double latency = reply ? latency_(request) : kPatience;
  HttpResult result =
      std::move(reply).value_or(HttpFailure{HttpFailure::Kind::transport, "The request timed out."});
  const std::uint64_t number = ++lastNumber_;
  // A timer ends with the client, and with it the request.
  auto arrival = world_.mainLoop().after(
      latency, [this, number, result = std::move(result)]() mutable { complete(number, std::move(result)); });
  flights_.emplace(number, Flight{url, std::move(completion), std::move(arrival)});
}

void ScriptedHttpClient::complete(std::uint64_t number, HttpResult result) {
  const auto flight = flights_.extract(number);
  --inFlightByUrl_[flight.mapped().url];
  flight.mapped().completion(std::move(result));
}

ScriptedHttpClient::Reply ScriptedHttpClient::replyTo(const Request& request) const {
  const auto own = handlers_.find(request.url);
  if (own != handlers_.end()) return own->second(request);
  for (auto entry = prefixHandlers_.rbegin(); entry != prefixHandlers_.rend(); ++entry) {
    // In descending order a longer prefix comes before the shorter ones that it begins with.
    if (request.url.starts_with(entry->first)) return entry->second(request);
  }
  return HttpResponse{404, {}};
}

void ScriptedHttpClient::handle(const std::string& url, Handler handler) {
  handlers_[url] = std::move(handler);
}

void ScriptedHttpClient::serve(const std::string& url, Bytes body) {
  handle(url, [body = std::move(body)](const Request&) { return HttpResponse{200, body}; });
}

void ScriptedHttpClient::serveStatus(const std::string& url, int status) {
  handle(url, [status](const Request&) { return HttpResponse{status, {}}; });
}

void ScriptedHttpClient::fail(const std::string& url, std::string description, HttpFailure::Kind kind) {
  handle(url, [failure = HttpFailure{kind, std::move(description)}](const Request&) { return failure; });
}

void ScriptedHttpClient::hang(const std::string& url) {
  handle(url, [](const Request&) { return std::nullopt; });
}

std::size_t ScriptedHttpClient::requestCount(const std::string& url) const {
  return static_cast<std::size_t>(
      std::count_if(requests_.begin(), requests_.end(), [&](const Request& r) { return r.url == url; }));
}

}  // namespace tarvel
