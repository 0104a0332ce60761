#pragma once
#include <cstdint>
#include <string>

namespace tarvel {

/// A version that compares as an integer: bits 48 to 63 the major number, 32 to 47 the minor, 16 to 31 the
/// patch, 0 to 15 the beta number. A final release has beta 0.
using PackedVersion = std::int64_t;

constexpr PackedVersion packedVersion(std::uint16_t major, std::uint16_t minor, std::uint16_t patch,
                                      std::uint16_t beta = 0) {
  return static_cast<PackedVersion>((static_cast<std::uint64_t>(major) << 48) |
                                    (static_cast<std::uint64_t>(minor) << 32) |
                                    (static_cast<std::uint64_t>(patch) << 16) | beta);
}

/// "6.1.0", "6.1.0 Beta 2".
std::string versionText(PackedVersion version);

}  // namespace tarvel
