#pragma once
#include <string>

#include "model/ScheduleItem.h"

namespace tarvel::test {

inline constexpr PackedDate kWeekOf = packedDate(2026, 3, 15);  // a Sunday

/// A session on a day of the week (0 for Sunday), from `time` on for `duration` minutes.
inline std::shared_ptr<const ScheduleItem> item(std::int64_t day, std::int64_t time, std::int64_t duration,
                                                SessionKind kind = SessionKind::publicSession,
                                                const std::string& subtitle = {}) {
  return std::make_shared<ScheduleItem>(ScheduleItemRecord{kind, day, time, duration, subtitle, {}},
                                        std::weak_ptr<const WeeklySchedule>{}, kWeekOf);
}

}  // namespace tarvel::test
