#pragma once
#include "foundation/CalendarDates.h"

namespace tarvel {

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
