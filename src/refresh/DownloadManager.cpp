#include "refresh/DownloadManager.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvel {

namespace {

constexpr int kStatusOK = 200;

/// Codes of the transport that reach the application as a status: which of them mean that there was no
/// connection.
constexpr int kFirstTransportCode = -1009;
constexpr std::array<DownloadErrorKind, 9> kTransportKinds = {
    DownloadErrorKind::connectionError, DownloadErrorKind::serverError,
    DownloadErrorKind::serverError,     DownloadErrorKind::serverError,
    DownloadErrorKind::connectionError, DownloadErrorKind::connectionError,
    DownloadErrorKind::connectionError, DownloadErrorKind::serverError,
    DownloadErrorKind::connectionError};

DownloadErrorKind kindOfStatus(int code) {
  const int index = code - kFirstTransportCode;
  const bool transport = index >= 0 && index < static_cast<int>(kTransportKinds.size());
  return transport ? kTransportKinds[static_cast<std::size_t>(index)] : DownloadErrorKind::serverError;
}

constexpr auto kPhrases = std::to_array<std::pair<int, const char*>>({
    {100, "Continue"},
    {101, "Switching Protocols"},
    {200, "OK"},
    {201, "Created"},
    {202, "Accepted"},
    {203, "Non-Authoritative Information"},
    {204, "No Content"},
    {205, "Reset Content"},
    {206, "Partial Content"},
    {300, "Multiple Choices"},
    {301, "Moved Permanently"},
    {302, "Found"},
    {303, "See Other"},
    {304, "Not Modified"},
    {305, "Use Proxy"},
    {307, "Temporary Redirect"},
    {308, "Permanent Redirect"},
    {400, "Bad Request"},
    {401, "Unauthorized"},
    {402, "Payment Required"},
    {403, "Forbidden"},
    {404, "Not Found"},
    {405, "Method Not Allowed"},
    {406, "Not Acceptable"},
    {407, "Proxy Authentication Required"},
    {408, "Request Timeout"},
    {409, "Conflict"},
    {410, "Gone"},
    {411, "Length Required"},
    {412, "Precondition Failed"},
    {413, "Content Too Large"},
    {414, "URI Too Long"},
    {415, "Unsupported Media Type"},
    {416, "Range Not Satisfiable"},
    {417, "Expectation Failed"},
    {421, "Misdirected Request"},
    {422, "Unprocessable Content"},
    {426, "Upgrade Required"},
    {429, "Too Many Requests"},
    {500, "Internal Server Error"},
    {501, "Not Implemented"},
    {502, "Bad Gateway"},
    {503, "Service Unavailable"},
    {504, "Gateway Timeout"},
    {505, "HTTP Version Not Supported"},
    {511, "Network Authentication Required"},
});

}  // namespace

std::string statusPhrase(int statusCode) {
  const auto found = std::find_if(kPhrases.begin(), kPhrases.end(),
                                  [&](const auto& phrase) { return phrase.first == statusCode; });
  if (found != kPhrases.end()) return found->second;
  switch (statusCode / 100) {
    case 1:
      return "Informational";
    case 2:
      return "Success";
    case 3:
      return "Redirected";
    case 4:
      return "Client Error";
    case 5:
      return "Server Error";
    default:
      return "Unknown Status";
  }
}

void DownloadManager::fetch(const std::string& url, std::function<void(DownloadResult)> completion) {
  services_.http.get(url, [completion = std::move(completion)](HttpResult result) {
    if (auto* failure = std::get_if<HttpFailure>(&result)) {
      const bool notHttp = failure->kind == HttpFailure::Kind::notHttp;
      completion(DownloadError{notHttp ? DownloadError::Kind::noResponse : DownloadError::Kind::connection, 0,
                               std::move(failure->description)});
      return;
    }
    auto& response = std::get<HttpResponse>(result);
    if (response.status == kStatusOK) {
      completion(std::move(response.body));
    } else {
      completion(DownloadError{DownloadError::Kind::statusError, response.status, {}});
    }
  });
}

DownloadManager::ErrorInfo DownloadManager::errorInfo(const DownloadError& error) {
  ErrorInfo info;
  switch (error.kind) {
    case DownloadError::Kind::connection:
      info = {DownloadErrorKind::connectionError, error.description};
      break;
    case DownloadError::Kind::noResponse:
      info = {DownloadErrorKind::serverError, error.description};
      break;
    case DownloadError::Kind::statusError:
      info = {kindOfStatus(error.statusCode),
              std::to_string(error.statusCode) + " " + statusPhrase(error.statusCode)};
      break;
  }
  services_.console.printLine("errorInfo: kind = " + std::string(caseNameOf(info.kind)) +
                              ", str = " + info.text);
  return info;
}

}  // namespace tarvel
