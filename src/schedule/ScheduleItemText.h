#pragma once
#include <string>

#include "model/ScheduleItem.h"

namespace tarvel {

/// "5:30 am - 6:45 am", as an item shows its times.
std::string itemTimesText(const ScheduleItem& item);
/// "5:30 - 6:45": the same without am and pm, by which the room for times is measured.
std::string itemClockText(const ScheduleItem& item);
/// Hours and minutes of the item's length, "1:05". One that ends before it begins counts as 0:00.
std::string itemDurationText(const ScheduleItem& item);
/// The item's text on one line.
std::string itemLineText(const ScheduleItem& item);

}  // namespace tarvel
