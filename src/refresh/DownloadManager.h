#pragma once
#include <functional>
#include <string>
#include <variant>

#include "foundation/Services.h"
#include "model/DownloadErrorKind.h"

namespace tarvel {

/// Why a download failed.
struct DownloadError {
  enum class Kind {
    statusError,  ///< the server answered with a status other than 200
    noResponse,   ///< what came back was no HTTP
    connection,   ///< the transport failed
  };
  Kind kind = Kind::connection;
  int statusCode = 0;       ///< of `statusError`
  std::string description;  ///< of the others
};

using DownloadResult = std::variant<Bytes, DownloadError>;

/// The one door to the network. It keeps no queue, tries nothing again and caches nothing: the callers decide
/// that. Any number of downloads run at once. Main thread.
class DownloadManager {
 public:
  struct ErrorInfo {
    DownloadErrorKind kind = DownloadErrorKind::noError;
    std::string text;  ///< for the user
  };

  explicit DownloadManager(const Services& services) : services_(services) {}

  /// Completes in a later turn of the main loop. Only status 200 is a success, no other 2xx.
  void fetch(const std::string& url, std::function<void(DownloadResult)> completion);
  /// Sorts an error, and prints the outcome.
  ErrorInfo errorInfo(const DownloadError& error);

 private:
  Services services_;
};

/// "404 Not Found" without the number, by RFC 9110; the class's name for a code that has no phrase.
std::string statusPhrase(int statusCode);

}  // namespace tarvel
