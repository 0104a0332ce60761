#pragma once
#include <cstdint>

namespace tarvel {

/// Numbers that look random and follow from the seed alone, the same on every machine (splitmix64).
class SeededRandom {
 public:
  explicit SeededRandom(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }
  /// 0 to `count` - 1; `count` is 1 or more.
  std::uint64_t below(std::uint64_t count) { return next() % count; }
  /// 0.0 up to but not 1.0.
  double fraction() { return static_cast<double>(next() >> 11) * 0x1p-53; }
  /// True `probability` of the times.
  bool chance(double probability) { return fraction() < probability; }

 private:
  std::uint64_t state_;
};

}  // namespace tarvel
