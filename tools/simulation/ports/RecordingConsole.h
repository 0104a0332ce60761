#pragma once
#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Console.h"

namespace tarvel {

/// Keeps what was printed.
class RecordingConsole : public Console {
 public:
  void printLine(std::string_view line) override {
    const std::lock_guard lock(mutex_);
    lines_.emplace_back(line);
  }
  std::vector<std::string> lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
  }
  bool printed(std::string_view line) const {
    const std::lock_guard lock(mutex_);
    return std::find(lines_.begin(), lines_.end(), line) != lines_.end();
  }
  void clear() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace tarvel
