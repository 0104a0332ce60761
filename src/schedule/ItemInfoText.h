#pragma once
#include <string>

#include "schedule/ScheduleSpot.h"

namespace tarvel {

/// What the information field says of an item under the mouse: day, date, times, duration, session and
/// subtitle. `sessionName` is the published name of the item's kind. `weekOf` is the week's Sunday.
std::string itemInfoText(const ScheduleItem& item, PackedDate weekOf, const std::string& sessionName);
/// The same of a gap between two items, on the day of the column.
std::string gapInfoText(const ScheduleSpot& gap, PackedDate date);

}  // namespace tarvel
