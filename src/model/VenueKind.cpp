#include "model/VenueKind.h"

#include <array>

namespace tarvel {

namespace {
constexpr std::array<std::string_view, 8> kDefaultNames = {"Other",        "Ice Sheet",  "Artificial Ice",
                                                           "Locker Room",  "Dance Room", "Party Room",
                                                           "Meeting Room", "Classroom"};
}

VenueKind venueKindOf(std::int8_t raw) {
  const bool known = raw >= 0 && static_cast<std::size_t>(raw) < kDefaultNames.size();
  return known ? static_cast<VenueKind>(raw) : VenueKind::other;
}

std::string_view defaultVenueName(VenueKind kind) {
  return kDefaultNames[static_cast<std::size_t>(kind)];
}

}  // namespace tarvel
