#pragma once
#include <string_view>

namespace tarvel {

/// Where progress lines go: standard output. Callable from any thread.
class Console {
 public:
  virtual ~Console() = default;
  /// Prints the text and a line end, and flushes.
  virtual void printLine(std::string_view line) = 0;
};

}  // namespace tarvel
