#pragma once
#include <cstddef>

namespace tarvel::fuzz {

/// Counts what the program holds through C++'s own allocation, from the meter's making on. One at a time;
/// what other threads take counts too.
class MemoryMeter {
 public:
  MemoryMeter();
  /// Bytes: the most that was held at once, beyond what was held at the start.
  std::size_t peak() const;

 private:
  std::size_t start_;
};

}  // namespace tarvel::fuzz
