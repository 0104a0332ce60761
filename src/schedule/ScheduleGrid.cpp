#include "schedule/ScheduleGrid.h"

#include <algorithm>

namespace tarvel {
namespace {

constexpr double kScrollPart = 0.25;

}  // namespace

TimeAxis SchedulePageInput::axis(double origin, double bottomMargin) const {
  TimeAxis axis{dayRange.startOfDay, dayRange.endOfDay, kScrollPointsPerMinute, origin};
  const auto minutes = static_cast<double>(dayRange.endOfDay - dayRange.startOfDay);
  if (verticalFit == VerticalFit::fit) {
    // A frame lower than its margins leaves no room for minutes at all.
    axis.pointsPerMinute = std::max(0.0, frame.height - origin - bottomMargin) / std::max(1.0, minutes);
  }
  return axis;
}

double SchedulePageInput::heightForAvailableHeight(double height, double origin, double bottomMargin) const {
  if (verticalFit == VerticalFit::fit) return height;
  const auto minutes = static_cast<double>(dayRange.endOfDay - dayRange.startOfDay);
  return std::max(height, minutes * kScrollPointsPerMinute + bottomMargin + origin);
}

Rect ScheduleGrid::itemRect(std::int64_t column, const ScheduleItem& item) const {
  return {columnX(column), axis.y(item.time), columnWidth, axis.length(item.duration)};
}

void ScheduleGrid::addIfMeeting(std::vector<PlacedItem>& placed, std::int64_t column,
                                const ScheduleItem& item, const Rect& dirty) const {
  const Rect rect = itemRect(column, item);
  if (!rect.empty() && rect.intersects(dirty.inset(-kItemFrameReach, -kItemFrameReach)))
    placed.push_back({&item, rect});
}

std::optional<GridHit> ScheduleGrid::hit(Point point) const {
  const Rect grid{left, axis.origin, right - left, axis.bottom() - axis.origin};
  if (columns < 1 || !grid.contains(point)) return std::nullopt;
  const auto column = static_cast<std::int64_t>((point.x - left) / columnWidth);
  return GridHit{std::min(column, columns - 1), axis.minuteAt(point.y)};
}

double ScheduleGrid::scrollOffset(std::int64_t minute, double visibleHeight) const {
  const double endRoom = axis.origin + kScheduleMargin;
  const double wanted = axis.length(minute - axis.startOfDay) + endRoom - visibleHeight * kScrollPart;
  const double last = axis.length(axis.endOfDay - axis.startOfDay) + endRoom - visibleHeight;
  // The limit counts last: a page that is lower than the visible height doesn't scroll at all.
  return std::max(0.0, std::min(std::max(0.0, wanted), last));
}

}  // namespace tarvel
