#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "schedule/ScheduleMetrics.h"

namespace tarvel {

/// A labelled line of a schedule's axis: "5:30" at height y.
struct AxisTick {
  std::int64_t minute = 0;
  double y = 0.0;
  std::string text;
  friend bool operator==(const AxisTick&, const AxisTick&) = default;
};

/// How minutes of the day lie along a schedule view's height. A plain value.
struct TimeAxis {
  std::int64_t startOfDay = kDefaultStartOfDay;
  std::int64_t endOfDay = kDefaultEndOfDay;
  double pointsPerMinute = 0.0;
  double origin = kAxisOrigin;  ///< where the first minute lies

  double y(std::int64_t minute) const;
  double length(std::int64_t minutes) const { return pointsPerMinute * static_cast<double>(minutes); }
  /// Below the last minute.
  double bottom() const { return y(endOfDay); }
  /// The minute at a height, rounded down; `y` is not above the axis.
  std::int64_t minuteAt(double y) const;
  bool covers(std::int64_t minute) const { return minute >= startOfDay && minute <= endOfDay; }
  std::vector<AxisTick> ticks(std::int64_t step) const;
};

}  // namespace tarvel
