#pragma once
#include <vector>

#include "model/ScheduleItem.h"

namespace tarvel {

struct TextAttributes;

/// The widest times, and the widest duration, of a day's items as they are written; 0 without items.
struct ItemTextWidths {
  double times = 0.0;
  double duration = 0.0;
  friend bool operator==(const ItemTextWidths&, const ItemTextWidths&) = default;
};

/// The room that the items of all lists take in that look. Resurfacings don't show their duration.
ItemTextWidths measureItemTexts(const std::vector<ScheduleItems>& lists, const TextAttributes& attributes);

}  // namespace tarvel
