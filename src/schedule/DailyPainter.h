#pragma once
#include "schedule/DailyLayout.h"
#include "schedule/ItemPainter.h"
#include "ui/Appearance.h"

namespace tarvel {

class DataModel;

/// All that a day's picture shows, on screen or on a page.
struct DailyPicture {
  const DailyLayout& layout;
  const DailyColumns& columns;
  const ItemStyles& styles;
  DataModel& dataModel;  ///< gives the sessions their colours
  PackedDate currentDate = kNoDate;
  Appearance appearance = Appearance::light;
};

/// The room that the day's times and durations take in the names' style.
ItemTextWidths measureDay(const DailyColumns& columns, const ItemStyles& styles);

/// Paints the items, the axis, the columns and, over them, the veil of a past day, as far as the dirty
/// rectangle reaches. The background is the caller's.
void paintDay(QPainter& painter, const DailyPicture& picture, const Rect& dirty);

}  // namespace tarvel
