#pragma once
#include <array>
#include <cstdint>
#include <string_view>

#include "platform/Color.h"

namespace tarvel {

/// What takes place on the ice. The raw value stands in files and indexes the published names and colours.
enum class SessionKind : std::int8_t {
  resurface,
  publicSession,
  privateSession,
  rental,
  freestyle,
  skatingSchool,
  hockeyGame,
  hockeyPractice,
  hockeyStickTime,
  hockeyPickup,
  other,
  synchro,
  privateTraining,
  specialEvent,
  groupExerciseClass,
  otherClass,
  party,
  meeting,
  broomball,
};

struct SessionStyle {
  std::string_view name;
  Color color;
};

inline constexpr int kSessionKindCount = 19;

/// The built-in names and colours by raw value, which serve until the server's are known.
extern const std::array<SessionStyle, kSessionKindCount> kBuiltInSessions;

std::string_view builtInName(SessionKind kind);

}  // namespace tarvel
