#pragma once
#include "schedule/ScheduleMoment.h"

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

}  // namespace tarvel
