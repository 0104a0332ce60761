#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "DemoRinks.h"
#include "foundation/CalendarDates.h"

namespace tarvel::demo {

struct PlannedSession {
  std::string kind;  ///< as the descriptions have it: "publicSession"
  int day = 0;       ///< 0 for Sunday to 6
  int time = 0;      ///< minutes after that day's midnight
  int duration = 0;  ///< minutes
  std::string subtitle;
  std::string note;
  friend bool operator==(const PlannedSession&, const PlannedSession&) = default;
};

/// Which week is wanted, and of what.
struct WeekRequest {
  std::uint64_t seed = 0;
  PackedDate weekOf = kNoDate;
  std::uint64_t edition = 0;  ///< another number, another plan for the same week
};

/// The sessions of a venue's week, by day and time, without overlaps: a rink's weekly pattern, with some days
/// that differ from week to week. The same request gives the same plan everywhere. A sheet's sessions have 15
/// minutes of resurfacing between them.
std::vector<PlannedSession> planWeek(const DemoRink& rink, const DemoVenue& venue,
                                     const WeekRequest& request);

}  // namespace tarvel::demo
