#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Bytes.h"
#include "support/SeededRandom.h"

namespace tarvel {

// What can happen to a file on its way. Each gives a damaged copy; an offset is within the bytes.

/// The first `length` bytes.
Bytes cutAt(const Bytes& bytes, std::size_t length);
/// Bit 0 is the first byte's lowest.
Bytes flipBit(const Bytes& bytes, std::size_t bit);
/// `count` bytes of `filler` more at the end.
Bytes grow(const Bytes& bytes, std::size_t count, std::uint8_t filler = 0);
/// Bytes replaced from `offset` on, as far as both reach.
Bytes overwrite(const Bytes& bytes, std::size_t offset, const Bytes& replacement);
/// A number of `width` bytes at `offset`, lowest byte first, replaced: for counts and lengths.
Bytes replaceCount(const Bytes& bytes, std::size_t offset, std::uint64_t count, std::size_t width);

struct Corruption {
  std::string name;  ///< for the failure's message
  Bytes bytes;
};
/// One of the above at a random place; `bytes` isn't empty.
Corruption corruptSomehow(const Bytes& bytes, SeededRandom& random);

}  // namespace tarvel
