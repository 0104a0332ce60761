#pragma once
#include <bit>
#include <cstdint>
#include <string_view>

#include "platform/Bytes.h"

namespace tarvel::sim {

/// FNV-1a, eight bytes at a time where there are as many: it only has to tell versions and runs apart.
inline std::uint64_t hashOf(ByteView bytes, std::uint64_t hash = 0xCBF29CE484222325u) {
  constexpr std::uint64_t kPrime = 0x100000001B3u;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t word = 0;
    for (std::size_t n = 0; n < 8; ++n) word |= std::uint64_t{bytes[i + n]} << (8 * n);
    hash = (hash ^ word) * kPrime;
    hash ^= hash >> 29;
  }
  for (; i < bytes.size(); ++i) hash = (hash ^ bytes[i]) * kPrime;
  return hash;
}

inline ByteView bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// The course of a run as one number: equal seeds give equal numbers.
class Trace {
 public:
  void add(char what, std::string_view text, double seconds, std::uint64_t outcome) {
    ++steps_;
    hash_ = hashOf(bytesOf(text), hash_ ^ static_cast<std::uint64_t>(what));
    hash_ = (hash_ ^ std::bit_cast<std::uint64_t>(seconds)) * 0x9E3779B97F4A7C15u;
    hash_ = (hash_ ^ outcome ^ (hash_ >> 31)) * 0x9E3779B97F4A7C15u;
  }
  std::uint64_t hash() const { return hash_; }
  std::uint64_t steps() const { return steps_; }

 private:
  std::uint64_t hash_ = 0;
  std::uint64_t steps_ = 0;
};

}  // namespace tarvel::sim
