#pragma once
#include "schedule/CalendarLayout.h"
#include "ui/Appearance.h"

class QPainter;

namespace tarvel {

/// All that a calendar's picture shows.
struct CalendarPicture {
  const CalendarLayout& layout;
  const CalendarSelection& selection;
  PackedDate today = kNoDate;
  bool isMainWindow = false;
  bool showsFocus = false;  ///< the keyboard moves the selection
  Appearance appearance = Appearance::light;
};

/// Paints the background and the months as far as the dirty rectangle reaches.
void paintCalendar(QPainter& painter, const CalendarPicture& picture, const Rect& dirty);

}  // namespace tarvel
