#include "Kinds.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <array>

namespace tarvel::publish {
namespace {

constexpr std::array<std::string_view, kSessionKinds> kSessionNames = {
    "resurface",     "publicSession", "privateSession",  "rental",          "freestyle",
    "skatingSchool", "hockeyGame",    "hockeyPractice",  "hockeyStickTime", "hockeyPickup",
    "other",         "synchro",       "privateTraining", "specialEvent",    "groupExerciseClass",
    "otherClass",    "party",         "meeting",         "broomball"};

constexpr std::array<std::string_view, kVenueKinds> kVenueNames = {
    "other", "iceSheet", "artificialIce", "lockerRoom", "danceRoom", "partyRoom", "meetingRoom", "classRoom"};

template <std::size_t count>
std::optional<std::int8_t> find(const std::array<std::string_view, count>& names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::int8_t>(found - names.begin());
}

}  // namespace

std::optional<std::int8_t> sessionKind(std::string_view name) {
  return find(kSessionNames, name);
}
std::optional<std::int8_t> venueKind(std::string_view name) {
  return find(kVenueNames, name);
}

std::string_view sessionKindName(int kind) {
  return kSessionNames.at(static_cast<std::size_t>(kind));
}
std::string_view venueKindName(int kind) {
  return kVenueNames.at(static_cast<std::size_t>(kind));
}

std::string sessionKindList() {
  return fmt::format("{}", fmt::join(kSessionNames, ", "));
}
std::string venueKindList() {
  return fmt::format("{}", fmt::join(kVenueNames, ", "));
}

}  // namespace tarvel::publish
