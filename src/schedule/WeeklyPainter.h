#pragma once
#include "schedule/ItemPainter.h"
#include "schedule/WeeklyLayout.h"
#include "ui/Appearance.h"

namespace tarvel {

class DataModel;
class RinkData;

/// All that a week's picture shows, on screen or on a page.
struct WeeklyPicture {
  const WeeklyLayout& layout;
  const ScheduleItems& items;
  const ItemStyles& styles;
  DataModel& dataModel;  ///< gives the sessions their colours
  SessionTimes sessionTimes = SessionTimes::hidden;
  PackedDate currentDate = kNoDate;
  PackedDate selectedDate = kNoDate;
  bool isMainWindow = false;
  Appearance appearance = Appearance::light;
};

/// Paints the items, the axis, the columns, and then, over them, what is past, today and the selection, as
/// far as the dirty rectangle reaches. The background is the caller's.
void paintWeek(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty);
/// The same, or the message in place of a week that can't be shown. A rink that
/// doesn't offer the week leaves the background alone.
void paintWeekOrMessage(QPainter& painter, const RinkData* rink, const WeeklySchedule* schedule,
                        const WeeklyPicture& picture, const Rect& dirty);

}  // namespace tarvel
