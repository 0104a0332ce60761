#include "schedule/WeeklyPainter.h"

#include <QPainter>

#include "model/DataModel.h"
#include "model/WeeklySchedule.h"
#include "schedule/DevicePixels.h"
#include "schedule/ScheduleGridPainter.h"
#include "schedule/ScheduleMessage.h"

namespace tarvel {
namespace {

void paintItems(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty) {
  for (const auto& [item, rect] : picture.layout.itemsMeeting(picture.items, dirty)) {
    const Color color = picture.dataModel.sessionColor(static_cast<std::int64_t>(item->kind));
    paintItem(painter, *item, rect, color, picture.styles, picture.sessionTimes);
  }
}

void paintDays(QPainter& painter, const WeeklyPicture& picture) {
  const WeeklyLayout& layout = picture.layout;
  const DevicePixels pixels(painter);
  if (const auto past = layout.pastRect(picture.currentDate)) {
    pixels.fill(*past, color(kPastBlend, picture.appearance));
  }
  if (const auto today = layout.todayRect(picture.currentDate)) {
    pixels.frame(*today, WeeklyLayout::kTodayLine, color(kScheduleColumns, picture.appearance));
  }
  if (const auto selection = layout.selectionRect(picture.selectedDate, picture.currentDate)) {
    const NamedColor name = picture.isMainWindow ? kSelectedContentBackground : kInactiveSelectedContentFrame;
    pixels.frame(*selection, WeeklyLayout::kSelectionLine, color(name, picture.appearance));
  }
}

}  // namespace

void paintWeek(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty) {
  const WeeklyLayout& layout = picture.layout;
  paintItems(painter, picture, dirty);
  paintAxis(painter, {layout.grid(), layout.labelStep(), layout.labels(), picture.appearance}, dirty);
  paintColumnLines(painter, layout.grid(), picture.appearance);
  paintDays(painter, picture);
}

void paintWeekOrMessage(QPainter& painter, const RinkData* rink, const WeeklySchedule* schedule,
                        const WeeklyPicture& picture, const Rect& dirty) {
  const Size size = picture.layout.grid().frame;
  if (!rink) return paintScheduleMessage(painter, kNoRinkSelected, size, picture.appearance);
  if (!schedule) return;
  const DownloadStatus& status = schedule->downloadStatus();
  switch (status.kind) {
    case DownloadStatus::Kind::idle:
      return paintWeek(painter, picture, dirty);
    case DownloadStatus::Kind::requested:
      return paintScheduleMessage(painter, "Download in progress...", size, picture.appearance);
    case DownloadStatus::Kind::invalidData:
      return paintScheduleMessage(painter, "Invalid Data Received", size, picture.appearance);
    case DownloadStatus::Kind::failed:
      return paintScheduleFailure(painter, "Download Failed\n" + status.text, size, picture.appearance);
  }
}

}  // namespace tarvel
