#pragma once
#include <QNetworkAccessManager>
#include <cstddef>
#include <map>
#include <memory>

#include "platform/HttpClient.h"
#include "platform/RunLoop.h"

namespace tarvel {

/// What a request may take before it counts as failed. The times are seconds.
struct HttpLimits {
  double silence = 60.0;
  double total = 600.0;
  int redirects = 5;
  std::size_t bodyBytes = std::size_t{64} << 20;
};

/// HTTP over Qt's network access. The loop is the main thread's, gives the time under the limits, and
/// outlives the client. Main thread. A reply that tells its length and is cut short is a failure; of one that
/// comes in chunks, or ends with its connection, Qt can't always tell, and its reader must.
class QtHttpClient final : public HttpClient {
 public:
  explicit QtHttpClient(RunLoop& mainLoop, HttpLimits limits = {});
  ~QtHttpClient() override;
  QtHttpClient(const QtHttpClient&) = delete;
  QtHttpClient& operator=(const QtHttpClient&) = delete;

  void get(const std::string& url, Completion completion) override;

 private:
  class Transfer;
  void finish(const Transfer* transfer, HttpResult result);

  RunLoop& mainLoop_;
  const HttpLimits limits_;
  QNetworkAccessManager network_;
  std::map<const Transfer*, std::shared_ptr<Transfer>> transfers_;
  /// Completions on their way in the loop hold it weakly: without it they are abandoned.
  std::shared_ptr<int> alive_ = std::make_shared<int>();
};

}  // namespace tarvel
