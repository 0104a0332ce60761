#pragma once
#include <cstdint>
#include <memory>

#include "model/ScheduleItem.h"

namespace tarvel {

/// What lies at a moment of one day's schedule: an item, the gap between two, or nothing. There is no gap
/// before a day's first item or after its last.
struct ScheduleSpot {
  enum class Kind { nothing, item, gap };
  Kind kind = Kind::nothing;
  std::shared_ptr<const ScheduleItem> item;  ///< of `item`
  std::int64_t gapStart = 0;                 ///< of `gap`: minutes
  std::int64_t gapEnd = 0;
};

/// Looks among the items of day `day` (0 for Sunday), which lie in the list by their time. The first item
/// that covers the minute is found, also where a later one is drawn over it.
ScheduleSpot findSpot(const ScheduleItems& items, std::int64_t day, std::int64_t minute);

/// The span that an axis needs to show all items: at least 5:00 to 24:00, the start rounded down to a whole
/// hour, the end up to a whole half hour.
struct DayRange {
  std::int64_t startOfDay = 0;
  std::int64_t endOfDay = 0;
  friend bool operator==(const DayRange&, const DayRange&) = default;
};
DayRange dayRangeOf(const ScheduleItems& items);

}  // namespace tarvel
