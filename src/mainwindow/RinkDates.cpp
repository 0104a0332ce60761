#include "mainwindow/RinkDates.h"

#include <algorithm>

#include "schedule/ScheduleMetrics.h"

namespace tarvel {

PackedDate WeekRange::clamped(PackedDate date) const {
  if (date < firstWeek) return firstWeek;
  return std::min(date, endOfWeek(lastWeek));  // of no date: no date
}

ScheduleMoment scheduleMoment(PackedDate dateNow, std::int64_t timeNow, std::int64_t startOfDay,
                              std::int64_t endOfDay) {
  const std::int64_t nightTime = timeNow + kMinutesPerDay;
  if (timeNow < startOfDay && nightTime <= endOfDay) return {previousDay(dateNow), nightTime};
  return {dateNow, timeNow};
}

}  // namespace tarvel
