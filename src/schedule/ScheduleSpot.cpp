#include "schedule/ScheduleSpot.h"

#include <algorithm>

#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

std::int64_t roundedDown(std::int64_t minutes, std::int64_t unit) {
  const std::int64_t rest = minutes % unit;
  return rest < 0 ? minutes - rest - unit : minutes - rest;
}

std::int64_t roundedUp(std::int64_t minutes, std::int64_t unit) {
  return -roundedDown(-minutes, unit);
}

}  // namespace

ScheduleSpot findSpot(const ScheduleItems& items, std::int64_t day, std::int64_t minute) {
  std::int64_t gapStart = 0;
  for (const auto& item : items) {
    if (item->day != day) continue;
    if (minute < item->time) {
      if (gapStart >= 1) return {ScheduleSpot::Kind::gap, nullptr, gapStart, item->time};
      continue;
    }
    const std::int64_t end = item->time + item->duration;
    if (minute < end) return {ScheduleSpot::Kind::item, item, 0, 0};
    gapStart = end;
  }
  return {};
}

DayRange dayRangeOf(const ScheduleItems& items) {
  std::int64_t earliest = kDefaultStartOfDay;
  std::int64_t latest = kDefaultEndOfDay;
  for (const auto& item : items) {
    earliest = std::min(earliest, item->time);
    latest = std::max(latest, item->time + item->duration);
  }
  return {roundedDown(earliest, kMinutesPerHour), roundedUp(latest, kMinutesPerHalfHour)};
}

}  // namespace tarvel
