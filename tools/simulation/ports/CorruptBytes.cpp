#include "simulation/ports/CorruptBytes.h"

#include <algorithm>

namespace tarvel {

Bytes cutAt(const Bytes& bytes, std::size_t length) {
  return Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(length, bytes.size())));
}

Bytes overwrite(const Bytes& bytes, std::size_t offset, const Bytes& replacement) {
  Bytes damaged = bytes;
  for (std::size_t i = 0; i < replacement.size() && offset + i < damaged.size(); ++i) {
    damaged[offset + i] = replacement[i];
  }
  return damaged;
}

Bytes corruptSomehow(const Bytes& bytes, SeededRandom& random) {
  static constexpr std::uint64_t kCounts[] = {
      0, 1, 0x7F, 0xFF, 0xFFFF, 0x7FFFFFFF, 0xFFFFFFFF, ~std::uint64_t{0} >> 1, ~std::uint64_t{0}};
  const std::size_t offset = random.below(bytes.size());
  Bytes damaged = bytes;
  switch (random.below(4)) {
    case 0:
      return cutAt(bytes, offset);
    case 1:
      damaged[offset] ^= static_cast<std::uint8_t>(1u << random.below(8));
      return damaged;
    case 2:
      damaged.insert(damaged.end(), offset + 1, static_cast<std::uint8_t>(random.next()));
      return damaged;
    default: {
      const std::uint64_t count = kCounts[random.below(std::size(kCounts))];
      Bytes number;
      for (std::uint64_t width = 1ULL << random.below(4), i = 0; i < width; ++i)
        number.push_back(static_cast<std::uint8_t>(count >> (8 * i)));
      return overwrite(bytes, offset, number);
    }
  }
}

}  // namespace tarvel
