#pragma once
#include <cstdint>
#include <string_view>

namespace tarvel {

/// A sheet of ice or a kind of room. The raw value stands in files.
enum class VenueKind : std::int8_t {
  other,
  iceSheet,
  artificialIce,
  lockerRoom,
  danceRoom,
  partyRoom,
  meetingRoom,
  classRoom,
};

/// A raw value outside the cases reads as `other`.
VenueKind venueKindOf(std::int8_t raw);
/// Shown for a venue without a name: "Ice Sheet", "Classroom".
std::string_view defaultVenueName(VenueKind kind);

}  // namespace tarvel
