#include "RequestLog.h"

#include <nlohmann/json.hpp>

namespace tarvel::demo {

std::size_t RequestLog::arrived(const std::string& method, const std::string& path) {
  const std::lock_guard lock(mutex_);
  entries_.push_back({method, path, clock_.now().seconds, kWaiting});
  return cleared_ + entries_.size() - 1;
}

void RequestLog::answered(std::size_t number, int status) {
  const std::lock_guard lock(mutex_);
  if (number >= cleared_) entries_.at(number - cleared_).status = status;
}

void RequestLog::clear() {
  const std::lock_guard lock(mutex_);
  cleared_ += entries_.size();
  entries_.clear();
}

nlohmann::json RequestLog::json() const {
  const std::lock_guard lock(mutex_);
  nlohmann::json list = nlohmann::json::array();
  for (const Entry& entry : entries_) {
    list.push_back({{"method", entry.method}, {"path", entry.path}, {"time", entry.time}});
    if (entry.status != kWaiting) list.back()["status"] = entry.status;
  }
  return list;
}

}  // namespace tarvel::demo
