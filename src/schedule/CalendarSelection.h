#pragma once
#include <string>

#include "foundation/CalendarDates.h"
#include "schedule/PeriodViewOption.h"

namespace tarvel {

/// The days that are chosen in a calendar, both ends included; no dates while nothing is chosen.
struct CalendarSelection {
  PeriodViewOption period = PeriodViewOption::day;
  PackedDate first = kNoDate;
  PackedDate last = kNoDate;

  /// The period that holds the date.
  static CalendarSelection around(PackedDate date, PeriodViewOption period);

  bool contains(PackedDate date) const { return first != kNoDate && date >= first && date <= last; }
  /// A chosen month is marked at its title and not day by day.
  bool marks(PackedDate date) const { return period != PeriodViewOption::month && contains(date); }
  /// "Week of March 15, 2026", for one who can't see it; empty while nothing is chosen.
  std::string text() const;
  friend bool operator==(const CalendarSelection&, const CalendarSelection&) = default;
};

/// The same day one period on or back. A day beyond the end of a shorter month becomes its last.
PackedDate nextInPeriods(PackedDate date, PeriodViewOption period);
PackedDate previousInPeriods(PackedDate date, PeriodViewOption period);

/// The 1st of the date's month; no date for none.
PackedDate firstOfMonth(PackedDate date);
/// "March 2026".
std::string monthTitle(PackedDate date);

}  // namespace tarvel
