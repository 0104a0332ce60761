#pragma once
#include <string>

#include "schedule/ItemPainter.h"
#include "schedule/WeeklyLayout.h"

namespace tarvel {

class DataModel;

/// All that a week's picture shows.
struct WeeklyPicture {
  const WeeklyLayout& layout;
  const ScheduleItems& items;
  const ItemStyles& styles;
  DataModel& dataModel;  ///< gives the sessions their colours
  SessionTimes sessionTimes = SessionTimes::hidden;
  PackedDate currentDate = kNoDate;
  PackedDate selectedDate = kNoDate;
  bool isMainWindow = false;
  Size size;
  Appearance appearance = Appearance::light;
};

/// Paints the items, the axis, the columns, and then, over them, what is past, today and the selection, as
/// far as the dirty rectangle reaches. The background is the caller's.
void paintWeek(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty);

/// A line in the middle of the view, in place of a week.
void paintScheduleMessage(QPainter& painter, const std::string& message, Size size, Appearance appearance);
/// Several lines that say what failed, in the middle of the view.
void paintScheduleFailure(QPainter& painter, const std::string& message, Size size, Appearance appearance);

}  // namespace tarvel
