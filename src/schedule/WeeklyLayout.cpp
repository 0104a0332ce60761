#include "schedule/WeeklyLayout.h"

namespace tarvel {
namespace {

double marginOf(Medium medium) {
  return medium == Medium::page ? kPrintedScheduleMargin : kScheduleMargin;
}

}  // namespace

WeeklyLayout::WeeklyLayout(const WeeklyLayoutInput& input) : input_(input) {
  const SchedulePageInput& page = input.page;
  const double margin = marginOf(page.medium);
  reducedWidth_ = page.frame.width < margin + kReducedBelow;
  grid_.axis = page.axis(kAxisOrigin, margin);
  grid_.left = reducedWidth_ ? kReducedLabelColumn : kLabelColumn;
  grid_.columns = kDays;
  grid_.columnWidth = (page.frame.width - grid_.left - margin) / kDays;
  grid_.right = grid_.columnX(kDays);
  grid_.frame = page.frame;
}

std::vector<PlacedItem> WeeklyLayout::itemsMeeting(const ScheduleItems& items, const Rect& dirty) const {
  std::vector<PlacedItem> placed;
  for (const auto& item : items) {
    if (item->day >= 0 && item->day < kDays) grid_.addIfMeeting(placed, item->day, *item, dirty);
  }
  return placed;
}

AxisLabels WeeklyLayout::labels() const {
  if (!onScreen()) return AxisLabels::printed;
  return reducedWidth_ ? AxisLabels::reduced : AxisLabels::normal;
}

std::int64_t WeeklyLayout::labelStep() const {
  return onScreen() ? labelStepFor(pointsPerMinute()) : kPrintedLabelStep;
}

bool WeeklyLayout::holds(PackedDate date) const {
  return input_.weekOf != kNoDate && date >= input_.weekOf && date <= endOfWeek(input_.weekOf);
}

Rect WeeklyLayout::columnRect(std::int64_t day, double verticalInset) const {
  return Rect{grid_.columnX(day), 0.0, columnWidth(), grid_.frame.height}.inset(0.0, verticalInset);
}

std::optional<Rect> WeeklyLayout::pastRect(PackedDate currentDate) const {
  if (!onScreen() || input_.weekOf == kNoDate || input_.weekOf >= currentDate) return std::nullopt;
  const int days = endOfWeek(input_.weekOf) < currentDate ? kDays : weekdayOf(currentDate);
  if (days < 1) return std::nullopt;
  return Rect{grid_.left, 0.0, columnWidth() * days, grid_.frame.height};
}

std::optional<Rect> WeeklyLayout::todayRect(PackedDate currentDate) const {
  if (!onScreen() || !holds(currentDate)) return std::nullopt;
  return columnRect(weekdayOf(currentDate), kTodayInset);
}

std::optional<Rect> WeeklyLayout::selectionRect(PackedDate selectedDate, PackedDate currentDate) const {
  if (!onScreen() || !holds(selectedDate)) return std::nullopt;
  const bool isToday = selectedDate == currentDate;
  return columnRect(weekdayOf(selectedDate), kSelectionInset + (isToday ? kSelectedTodayInset : 0.0));
}

std::optional<Rect> WeeklyLayout::timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const {
  if (!onScreen() || !holds(currentDate) || !grid_.axis.covers(currentTime)) return std::nullopt;
  return Rect{grid_.columnX(weekdayOf(currentDate)) - kTimeMarkerWidth,
              grid_.axis.y(currentTime) - kTimeMarkerHeight / 2, columnWidth() + 2 * kTimeMarkerWidth,
              kTimeMarkerHeight};
}

double WeeklyLayout::heightForAvailableHeight(double height, const SchedulePageInput& input) {
  return input.heightForAvailableHeight(height, kAxisOrigin, marginOf(input.medium));
}

}  // namespace tarvel
