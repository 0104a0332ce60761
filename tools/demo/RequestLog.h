#pragma once
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "platform/Clock.h"

namespace tarvel::demo {

/// What has been asked of the server, in order of arrival, requests to the control paths aside. Callable from
/// any thread.
class RequestLog {
 public:
  explicit RequestLog(const Clock& clock) : clock_(clock) {}

  /// Returns the entry's number, for `answered`.
  std::size_t arrived(const std::string& method, const std::string& path);
  /// Notes the status that was sent; 0 stands for none. An entry that was cleared meanwhile is passed over.
  void answered(std::size_t number, int status);
  void clear();
  /// [{"method": "GET", "path": "/root.b1", "time": seconds since 2001, "status": 200}, ...]; an entry that
  /// is still waiting for its answer has no status.
  nlohmann::json json() const;

 private:
  struct Entry {
    std::string method;
    std::string path;
    double time;
    int status;
  };
  static constexpr int kWaiting = -1;

  const Clock& clock_;
  mutable std::mutex mutex_;
  std::vector<Entry> entries_;
  std::size_t cleared_ = 0;  ///< entries that stood before the first of `entries_`
};

}  // namespace tarvel::demo
