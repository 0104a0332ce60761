#include "mainwindow/RinkDates.h"

#include <algorithm>

namespace tarvel {

PackedDate WeekRange::clamped(PackedDate date) const {
  if (date < firstWeek) return firstWeek;
  return std::min(date, endOfWeek(lastWeek));  // of no date: no date
}

}  // namespace tarvel
