#pragma once
#include <cstdint>
#include <span>
#include <vector>

namespace tarvel {

/// A block of raw bytes: the content of a file or the body of a reply.
using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

}  // namespace tarvel
