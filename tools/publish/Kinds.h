#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvel::publish {

inline constexpr int kSessionKinds = 19;
inline constexpr int kVenueKinds = 8;

/// The number by which a file knows the kind of a name such as "publicSession" or "iceSheet"; none if there
/// is no such kind. Case counts.
std::optional<std::int8_t> sessionKind(std::string_view name);
std::optional<std::int8_t> venueKind(std::string_view name);
/// The name of a kind, 0 to 18 for sessions and 0 to 7 for venues.
std::string_view sessionKindName(int kind);
std::string_view venueKindName(int kind);
/// All names with ", " between, for messages.
std::string sessionKindList();
std::string venueKindList();

}  // namespace tarvel::publish
