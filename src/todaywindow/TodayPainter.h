#pragma once
#include <string>

#include "todaywindow/TodayLayout.h"
#include "todaywindow/TodayStyles.h"

class QPainter;

namespace tarvel {

class DataModel;
class WeeklySchedule;

/// All that the day's picture shows, on screen or on a page.
struct TodayPicture {
  const TodayLayout& layout;
  const ScheduleItems& items;
  const TodayStyles& styles;
  DataModel& dataModel;  ///< gives the sessions their colours
  std::int64_t currentTime = 0;
  Appearance appearance = Appearance::light;
};

/// The room that the items' times and durations take.
ItemTextWidths measureToday(const ScheduleItems& items, const TodayStyles& styles);

/// Paints the bars, the axis, the columns' lines and, on screen, the frame of the session that is on, as far
/// as the dirty rectangle reaches. The background is the caller's.
void paintToday(QPainter& painter, const TodayPicture& picture, const Rect& dirty);
/// The same, or what stands in its place while the week isn't at hand. A null schedule shows nothing.
void paintTodayOrMessage(QPainter& painter, const WeeklySchedule* schedule, const TodayPicture& picture,
                         const Rect& dirty);

}  // namespace tarvel
