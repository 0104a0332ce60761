#include "schedule/TimeAxis.h"

#include "foundation/TextFormats.h"

namespace tarvel {

double TimeAxis::y(std::int64_t minute) const {
  return length(minute - startOfDay) + origin;
}

std::int64_t TimeAxis::minuteAt(double height) const {
  return startOfDay + static_cast<std::int64_t>((height - origin) / pointsPerMinute);
}

std::vector<AxisTick> TimeAxis::ticks(std::int64_t step) const {
  std::vector<AxisTick> result;
  for (std::int64_t minute = startOfDay; minute <= endOfDay; minute += step) {
    result.push_back({minute, y(minute), clockText(minute)});
  }
  return result;
}

}  // namespace tarvel
