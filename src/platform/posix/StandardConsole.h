#pragma once
#include <mutex>

#include "platform/Console.h"

namespace tarvel {

/// Standard output, a line at a time: lines of several threads don't mix.
class StandardConsole : public Console {
 public:
  void printLine(std::string_view line) override;

 private:
  std::mutex mutex_;
};

}  // namespace tarvel
