#pragma once
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/HttpClient.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel {

/// A network of which the test says what each URL answers, on the world's main loop. A URL that nothing was
/// said of answers 404. What is answered is settled when the request is made.
class ScriptedHttpClient : public HttpClient {
 public:
  struct Request {
    std::string url;
    Instant at;      ///< wall time
    double seconds;  ///< monotonic time
  };
  /// None for a request that hangs: it fails when the client's patience ends.
  using Reply = std::optional<HttpResult>;
  using Handler = std::function<Reply(const Request&)>;
  static constexpr double kPatience = 60.0;

  explicit ScriptedHttpClient(SimWorld& world);
  void get(const std::string& url, Completion completion) override;

  // Each replaces what was said of the URL before.
  void serve(const std::string& url, Bytes body);
  void serveStatus(const std::string& url, int status);
  void fail(const std::string& url, std::string description,
            HttpFailure::Kind kind = HttpFailure::Kind::transport);
  void hang(const std::string& url);
  void handle(const std::string& url, Handler handler);
  void forget(const std::string& url) { handlers_.erase(url); }
  /// For every URL that begins so and has no answer of its own; the longest prefix wins.
  void handlePrefix(const std::string& prefix, Handler handler) {
    prefixHandlers_[prefix] = std::move(handler);
  }
  /// From a request to its reply; 0 replies in the next turns.
  void setLatency(double seconds) {
    latency_ = [seconds](const Request&) { return seconds; };
  }
  void setLatency(std::function<double(const Request&)> latency) { latency_ = std::move(latency); }

  const std::vector<Request>& requests() const { return requests_; }
  std::size_t requestCount(const std::string& url) const;
  void clearRequests() { requests_.clear(); }
  /// The most requests of one URL that were under way at once, over all URLs.
  int maxInFlightOfOneUrl() const { return maxInFlightOfOneUrl_; }

 private:
  Reply replyTo(const Request& request) const;
  void complete(std::uint64_t number, HttpResult result);

  struct Flight {
    std::string url;
    Completion completion;
    std::unique_ptr<Timer> arrival;
  };

  SimWorld& world_;
  std::map<std::string, Handler> handlers_;
  std::map<std::string, Handler> prefixHandlers_;
  std::function<double(const Request&)> latency_;
  std::vector<Request> requests_;
  std::uint64_t lastNumber_ = 0;
  std::map<std::uint64_t, Flight> flights_;
  std::map<std::string, int> inFlightByUrl_;
  int maxInFlightOfOneUrl_ = 0;
};

}  // namespace tarvel
