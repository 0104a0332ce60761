#include "schedule/WeeklyLayout.h"

#include <algorithm>

namespace tarvel {
namespace {

constexpr double kScrollEndRoom = 24.0;
constexpr double kScrollPart = 0.25;

double marginOf(Medium medium) {
  return medium == Medium::page ? kPrintedScheduleMargin : kScheduleMargin;
}

}  // namespace

WeeklyLayout::WeeklyLayout(const WeeklyLayoutInput& input) : input_(input) {
  const double margin = marginOf(input.medium);
  axis_ = {input.startOfDay, input.endOfDay, kScrollPointsPerMinute};
  if (input.verticalFit == VerticalFit::fit) {
    axis_.pointsPerMinute =
        (input.frame.height - kAxisOrigin - margin) / static_cast<double>(input.endOfDay - input.startOfDay);
  }
  reducedWidth_ = input.frame.width < margin + kReducedBelow;
  labelColumnWidth_ = reducedWidth_ ? kReducedLabelColumn : kLabelColumn;
  columnWidth_ = (input.frame.width - labelColumnWidth_ - margin) / kDays;
}

double WeeklyLayout::margin() const {
  return marginOf(input_.medium);
}

double WeeklyLayout::columnX(std::int64_t day) const {
  return labelColumnWidth_ + columnWidth_ * static_cast<double>(day);
}

Rect WeeklyLayout::itemRect(const ScheduleItem& item) const {
  return {columnX(item.day), axis_.y(item.time), columnWidth_, axis_.length(item.duration)};
}

std::vector<WeeklyLayout::PlacedItem> WeeklyLayout::itemsMeeting(const ScheduleItems& items,
                                                                 const Rect& dirty) const {
  // An item's frame lies astride its edge, and the fold of a short item reaches below it.
  const Rect reach{dirty.x - 1.0, dirty.y - kNoteCorner, dirty.width + 2.0, dirty.height + kNoteCorner + 1.0};
  std::vector<PlacedItem> result;
  for (const auto& item : items) {
    if (item->day < 0 || item->day >= kDays) continue;
    const Rect rect = itemRect(*item);
    if (rect.intersects(reach)) result.push_back({item.get(), rect});
  }
  return result;
}

std::int64_t WeeklyLayout::labelStep() const {
  return input_.medium == Medium::page ? kPrintedLabelStep : labelStepFor(axis_.pointsPerMinute);
}

bool WeeklyLayout::holds(PackedDate date) const {
  return input_.weekOf != kNoDate && date >= input_.weekOf && date <= endOfWeek(input_.weekOf);
}

Rect WeeklyLayout::columnRect(std::int64_t day, double verticalInset) const {
  return Rect{columnX(day), 0.0, columnWidth_, input_.frame.height}.inset(0.0, verticalInset);
}

std::optional<Rect> WeeklyLayout::pastRect(PackedDate currentDate) const {
  if (input_.weekOf == kNoDate || input_.weekOf >= currentDate) return std::nullopt;
  const int days = endOfWeek(input_.weekOf) < currentDate ? kDays : weekdayOf(currentDate);
  if (days < 1) return std::nullopt;
  return Rect{labelColumnWidth_, 0.0, columnWidth_ * days, input_.frame.height};
}

std::optional<Rect> WeeklyLayout::todayRect(PackedDate currentDate) const {
  if (!holds(currentDate)) return std::nullopt;
  return columnRect(weekdayOf(currentDate), kTodayInset);
}

std::optional<Rect> WeeklyLayout::selectionRect(PackedDate selectedDate, PackedDate currentDate) const {
  if (!holds(selectedDate)) return std::nullopt;
  const bool isToday = selectedDate == currentDate;
  return columnRect(weekdayOf(selectedDate), kSelectionInset + (isToday ? kSelectedTodayInset : 0.0));
}

std::optional<Rect> WeeklyLayout::timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const {
  if (input_.medium == Medium::page || !holds(currentDate) || !axis_.covers(currentTime)) return std::nullopt;
  return Rect{columnX(weekdayOf(currentDate)) - kTimeMarkerWidth,
              axis_.y(currentTime) - kTimeMarkerHeight / 2, columnWidth_ + 2 * kTimeMarkerWidth,
              kTimeMarkerHeight};
}

std::optional<WeeklyLayout::Hit> WeeklyLayout::hit(Point point) const {
  const Rect grid{labelColumnWidth_, kAxisOrigin, kDays * columnWidth_, axis_.bottom() - kAxisOrigin};
  if (!grid.contains(point)) return std::nullopt;
  const int day = static_cast<int>((point.x - labelColumnWidth_) / columnWidth_);
  return Hit{std::min(day, kDays - 1), axis_.minuteAt(point.y)};
}

double WeeklyLayout::scrollOffset(std::int64_t minute, double visibleHeight) const {
  const double wanted =
      axis_.length(minute - axis_.startOfDay) + kScrollEndRoom - visibleHeight * kScrollPart;
  const double last = axis_.length(axis_.endOfDay - axis_.startOfDay) + kScrollEndRoom - visibleHeight;
  // The limit counts last: a week that is lower than the visible height doesn't scroll at all.
  return std::max(0.0, std::min(std::max(0.0, wanted), last));
}

double WeeklyLayout::heightForAvailableHeight(double height, const WeeklyLayoutInput& input) {
  if (input.verticalFit == VerticalFit::fit) return height;
  const double axis = static_cast<double>(input.endOfDay - input.startOfDay) * kScrollPointsPerMinute;
  return std::max(height, axis + marginOf(input.medium) + kAxisOrigin);
}

}  // namespace tarvel
