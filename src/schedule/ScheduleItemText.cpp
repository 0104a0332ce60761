#include "schedule/ScheduleItemText.h"

#include <fmt/format.h>

#include <algorithm>

#include "foundation/TextFormats.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

constexpr std::string_view kLineSeparator = "   ";

}  // namespace

std::string itemTimesText(const ScheduleItem& item) {
  return timeText(item.time) + " - " + timeText(item.time + item.duration);
}

std::string itemClockText(const ScheduleItem& item) {
  return clockText(item.time) + " - " + clockText(item.time + item.duration);
}

std::string itemDurationText(const ScheduleItem& item) {
  const std::int64_t minutes = std::max<std::int64_t>(0, item.duration);
  return fmt::format("{}:{:02}", minutes / kMinutesPerHour, minutes % kMinutesPerHour);
}

std::string itemLineText(const ScheduleItem& item) {
  std::string line;
  for (const char c : item.displayName("\n")) {
    if (c == '\n') {
      line += kLineSeparator;
    } else {
      line += c;
    }
  }
  return line;
}

}  // namespace tarvel
