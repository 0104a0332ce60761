#include "schedule/ScheduleMoment.h"

#include "schedule/ScheduleMetrics.h"

namespace tarvel {

ScheduleMoment scheduleMoment(PackedDate dateNow, std::int64_t timeNow, std::int64_t startOfDay,
                              std::int64_t endOfDay) {
  const std::int64_t nightTime = timeNow + kMinutesPerDay;
  if (timeNow < startOfDay && nightTime <= endOfDay) return {previousDay(dateNow), nightTime};
  return {dateNow, timeNow};
}

}  // namespace tarvel
