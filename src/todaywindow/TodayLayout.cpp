#include "todaywindow/TodayLayout.h"

#include <algorithm>

namespace tarvel {
namespace {

constexpr double kScrollPart = 0.2;

/// Towards earlier times, before midnight too.
std::int64_t halfHourBefore(std::int64_t minute) {
  const std::int64_t rest = minute % kMinutesPerHalfHour;
  return minute - (rest < 0 ? rest + kMinutesPerHalfHour : rest);
}

std::int64_t halfHourAfter(std::int64_t minute) {
  return -halfHourBefore(-minute);
}

}  // namespace

DayRange todayRange(const ScheduleItems& items, const DayRange& floor) {
  DayRange range = floor;
  for (const auto& item : items) {
    range.startOfDay = std::min(range.startOfDay, item->time);
    range.endOfDay = std::max(range.endOfDay, item->time + item->duration);
  }
  return {halfHourBefore(range.startOfDay), halfHourAfter(range.endOfDay)};
}

TodayLayout::TodayLayout(const TodayLayoutInput& input) : input_(input) {
  timeColWidth_ = std::max(kLeastTimeColumn, input.widest.times + 2 * kColumnPadding);
  durationColWidth_ = std::max(kLeastDurationColumn, input.widest.duration + 2 * kColumnPadding);
  descrColWidth_ =
      std::max(0.0, input.frame.width - kBarX - timeColWidth_ - durationColWidth_ - kRightMargin);
  grid_.axis = makeAxis();
  grid_.left = kBarX;
  grid_.right = input.frame.width - kRightMargin;
  viewHeight_ = input.frame.height;
  if (input.verticalFit == VerticalFit::scroll)
    viewHeight_ = std::max(viewHeight_, grid_.axis.bottom() + kBottomMargin);
  grid_.frame = {input.frame.width, viewHeight_};
}

TimeAxis TodayLayout::makeAxis() const {
  const DayRange& range = input_.dayRange;
  TimeAxis axis{range.startOfDay, range.endOfDay, input_.heightScaleFactor, kAxisOrigin};
  if (input_.verticalFit == VerticalFit::fit) {
    const double room = std::max(0.0, input_.frame.height - kAxisOrigin - kBottomMargin);
    axis.pointsPerMinute =
        room / static_cast<double>(std::max<std::int64_t>(1, range.endOfDay - range.startOfDay));
  }
  return axis;
}

std::int64_t TodayLayout::labelStep() const {
  return input_.medium == Medium::page ? kPrintedLabelStep : labelStepFor(pointsPerMinute());
}

std::array<double, 4> TodayLayout::columnLines() const {
  const double description = kBarX + timeColWidth_;
  const double duration = description + descrColWidth_;
  return {kBarX, description, duration, duration + durationColWidth_};
}

Rect TodayLayout::barRect(const ScheduleItem& item) const {
  return {kBarX, grid_.axis.y(item.time), barWidth(), grid_.axis.length(item.duration)};
}

std::vector<PlacedItem> TodayLayout::itemsMeeting(const ScheduleItems& items, const Rect& dirty) const {
  const Rect reach = dirty.inset(-kItemFrameReach, -kItemFrameReach);
  std::vector<PlacedItem> placed;
  for (const auto& item : items) {
    const Rect rect = barRect(*item);
    if (!rect.empty() && rect.intersects(reach)) placed.push_back({item.get(), rect});
  }
  return placed;
}

Rect TodayLayout::timesRect(const Rect& bar) const {
  return {bar.x + kColumnPadding, bar.y, timeColWidth_ - 2 * kColumnPadding, bar.height};
}

Rect TodayLayout::durationRect(const Rect& bar) const {
  return {bar.x + timeColWidth_ + descrColWidth_ + kColumnPadding, bar.y,
          durationColWidth_ - 2 * kColumnPadding, bar.height};
}

Rect TodayLayout::descriptionColumn(const Rect& bar) const {
  return {bar.x + timeColWidth_, bar.y, descrColWidth_, bar.height};
}

Rect TodayLayout::descriptionRect(const Rect& bar) const {
  return descriptionColumn(bar).inset(kDescriptionPadding, 0.0);
}

std::optional<Rect> TodayLayout::noteRect(const Rect& bar, double descriptionWidth) const {
  const Rect description = descriptionRect(bar);
  const double left = description.width - descriptionWidth - kNoteGap;
  if (left < kLeastNote) return std::nullopt;
  return Rect{description.x + descriptionWidth + kNoteGap, bar.y, left, bar.height};
}

std::optional<Rect> TodayLayout::timeMarkerRect(std::int64_t currentTime) const {
  if (input_.medium == Medium::page || !grid_.axis.covers(currentTime)) return std::nullopt;
  return Rect{kBarX - kMarkerWidth, grid_.axis.y(currentTime) - kMarkerHeight / 2,
              barWidth() + 2 * kMarkerWidth, kMarkerHeight};
}

double TodayLayout::scrollOffset(std::int64_t currentTime, double visibleHeight) const {
  const DayRange& range = input_.dayRange;
  const std::int64_t minute = std::min(std::max(currentTime, range.startOfDay), range.endOfDay);
  const double wanted = grid_.axis.y(minute) - kScrollPart * visibleHeight;
  return std::max(0.0, std::min(wanted, viewHeight_ - visibleHeight));
}

const ScheduleItem* todayItemAt(const ScheduleItems& items, std::int64_t minute) {
  const ScheduleItem* found = nullptr;
  for (const auto& item : items) {
    if (item->time <= minute && minute < item->time + item->duration) found = item.get();
  }
  return found;
}

}  // namespace tarvel
