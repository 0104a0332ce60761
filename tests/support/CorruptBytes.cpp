#include "support/CorruptBytes.h"

#include <algorithm>

namespace tarvel {

Bytes cutAt(const Bytes& bytes, std::size_t length) {
  return Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(length, bytes.size())));
}

Bytes flipBit(const Bytes& bytes, std::size_t bit) {
  Bytes damaged = bytes;
  damaged.at(bit / 8) ^= static_cast<std::uint8_t>(1u << (bit % 8));
  return damaged;
}

Bytes grow(const Bytes& bytes, std::size_t count, std::uint8_t filler) {
  Bytes damaged = bytes;
  damaged.insert(damaged.end(), count, filler);
  return damaged;
}

Bytes overwrite(const Bytes& bytes, std::size_t offset, const Bytes& replacement) {
  Bytes damaged = bytes;
  for (std::size_t i = 0; i < replacement.size() && offset + i < damaged.size(); ++i) {
    damaged[offset + i] = replacement[i];
  }
  return damaged;
}

Bytes replaceCount(const Bytes& bytes, std::size_t offset, std::uint64_t count, std::size_t width) {
  Bytes number;
  for (std::size_t i = 0; i < width; ++i) number.push_back(static_cast<std::uint8_t>(count >> (8 * i)));
  return overwrite(bytes, offset, number);
}

Corruption corruptSomehow(const Bytes& bytes, SeededRandom& random) {
  static constexpr std::uint64_t kCounts[] = {
      0, 1, 0x7F, 0xFF, 0xFFFF, 0x7FFFFFFF, 0xFFFFFFFF, ~std::uint64_t{0} >> 1, ~std::uint64_t{0}};
  const std::size_t offset = random.below(bytes.size());
  const std::string place = " at " + std::to_string(offset);
  switch (random.below(4)) {
    case 0:
      return {"cut" + place, cutAt(bytes, offset)};
    case 1: {
      const std::size_t bit = offset * 8 + random.below(8);
      return {"bit flipped: " + std::to_string(bit), flipBit(bytes, bit)};
    }
    case 2: {
      const auto filler = static_cast<std::uint8_t>(random.next());
      return {"grown by " + std::to_string(offset + 1), grow(bytes, offset + 1, filler)};
    }
    default: {
      const std::uint64_t count = kCounts[random.below(std::size(kCounts))];
      const std::size_t width = std::size_t{1} << random.below(4);
      return {"count " + std::to_string(count) + place, replaceCount(bytes, offset, count, width)};
    }
  }
}

}  // namespace tarvel
