#pragma once
#include <cstdint>

#include "platform/Bytes.h"
#include "simulation/ports/SeededRandom.h"

namespace tarvel {

// What can happen to a file on its way. Each gives a damaged copy; an offset is within the bytes.

/// The first `length` bytes.
Bytes cutAt(const Bytes& bytes, std::size_t length);
/// Bytes replaced from `offset` on, as far as both reach.
Bytes overwrite(const Bytes& bytes, std::size_t offset, const Bytes& replacement);

/// Cut, grown, or with a bit or a number changed at a random place; `bytes` isn't empty.
Bytes corruptSomehow(const Bytes& bytes, SeededRandom& random);

}  // namespace tarvel
