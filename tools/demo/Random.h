#pragma once
#include <cstdint>
#include <initializer_list>
#include <span>

namespace tarvel::demo {

/// A small generator of our own (splitmix64), so that a seed means the same content on every machine.
class Random {
 public:
  /// The stream that belongs to these numbers together: a seed, a rink, a venue, a day.
  Random(std::initializer_list<std::uint64_t> key) {
    for (const std::uint64_t part : key) {
      state_ ^= part;
      state_ = next();
    }
  }

  std::uint64_t next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
  }
  /// 0 to n - 1; n is 1 or more.
  int below(int n) { return static_cast<int>(next() % static_cast<std::uint64_t>(n)); }
  /// From 0 up to, and less than, 1.
  double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }
  double between(double low, double high) { return low + (high - low) * unit(); }
  bool chance(double probability) { return unit() < probability; }
  template <class T>
  const T& pick(std::span<const T> choices) {
    return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
  }

 private:
  std::uint64_t state_ = 0x7461727665ULL;
};

}  // namespace tarvel::demo
