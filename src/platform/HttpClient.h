#pragma once
#include <functional>
#include <string>
#include <variant>

#include "platform/Bytes.h"

namespace tarvel {

/// A reply of the server, of any status, its body whole.
struct HttpResponse {
  int status = 200;
  Bytes body;
};

/// No reply: the transport failed, or what came back wasn't HTTP.
struct HttpFailure {
  enum class Kind { transport, notHttp };
  Kind kind = Kind::transport;
  std::string description;  ///< for the user, never empty
};

using HttpResult = std::variant<HttpResponse, HttpFailure>;

/// Fetches URLs. Nothing is cached, no cookies or credentials are kept. A request fails after 60 seconds
/// without a byte and after 10 minutes in all; at most 5 redirects are followed, none from https to http; a
/// body of more than 64 MiB is a failure. A text that is no http or https URL is a transport failure like any
/// other. Any number of requests may run at once.
class HttpClient {
 public:
  using Completion = std::function<void(HttpResult)>;

  virtual ~HttpClient() = default;
  /// Called on the main thread. Completes exactly once, on the main thread, in a later turn of its loop;
  /// never once the client is destroyed, which abandons what is in flight.
  virtual void get(const std::string& url, Completion completion) = 0;
};

}  // namespace tarvel
