#pragma once
#include <string>
#include <string_view>

#include "schedule/ScheduleSpot.h"

namespace tarvel {

/// What the information field says of an item under the mouse: day, date, times, duration, session and
/// subtitle. `sessionName` is the published name of the item's kind. `filedOn` is the day of the item's
/// column; one that begins after its midnight shows the day after.
std::string itemInfoText(const ScheduleItem& item, PackedDate filedOn, const std::string& sessionName);
/// The same of a gap between two items, on the day of the column. `gapName` says what the gap is called.
std::string gapInfoText(const ScheduleSpot& gap, PackedDate date, std::string_view gapName);

}  // namespace tarvel
