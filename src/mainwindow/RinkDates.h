#pragma once
#include "foundation/CalendarDates.h"

namespace tarvel {

/// The weeks for which a rink offers schedules, both given by their Sundays.
struct WeekRange {
  PackedDate firstWeek = kNoDate;
  PackedDate lastWeek = kNoDate;

  /// The nearest date that the range offers. Without a last week that is no date, unless `date` lies before
  /// the first.
  PackedDate clamped(PackedDate date) const;
  /// Whether the week that begins on that Sunday may be turned to: from the one side, and from the other.
  bool reachableBackwards(PackedDate weekOf) const { return weekOf >= firstWeek; }
  bool reachableForwards(PackedDate weekOf) const { return weekOf <= endOfWeek(lastWeek); }
  bool holds(PackedDate date) const { return date >= firstWeek && date <= endOfWeek(lastWeek); }
};

/// What a schedule calls now: after midnight, while the axis still reaches that far, the night belongs to the
/// day before, in minutes above 1440.
struct ScheduleMoment {
  PackedDate date = kNoDate;
  std::int64_t time = 0;  ///< minutes
  friend bool operator==(const ScheduleMoment&, const ScheduleMoment&) = default;
};
ScheduleMoment scheduleMoment(PackedDate dateNow, std::int64_t timeNow, std::int64_t startOfDay,
                              std::int64_t endOfDay);

}  // namespace tarvel
