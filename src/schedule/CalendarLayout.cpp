#include "schedule/CalendarLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr int kMonthsPerYear = 12;
constexpr double kMonthRoom =
    CalendarLayout::kMonthTopMargin + CalendarLayout::kTitleHeight + CalendarLayout::kMonthBottomMargin;
constexpr double kDaysTop = CalendarLayout::kMonthTopMargin + CalendarLayout::kTitleHeight;
// A cell lies a little to the right of its column and above its row, so that the number, which stands at the
// column's right end, is in the middle of it.
constexpr double kCellLift = 1.0;
constexpr double kNumberGap = 3.0;
constexpr double kColumnsShift = 1.0;
constexpr double kTitleBandLift = 2.0;
constexpr double kOutlineInset = 1.0;
/// How far the months before, or after, the selected one are taken into view.
constexpr int kMostNeighbours = 3;

int monthNumber(PackedDate date) {
  return yearOf(date) * kMonthsPerYear + monthOf(date) - 1;
}

int daysIn(PackedDate date) {
  return daysInMonth(yearOf(date), monthOf(date));
}

PackedDate dayOfMonth(PackedDate firstOfMonth, int day) {
  return firstOfMonth + static_cast<PackedDate>(day - 1);
}

}  // namespace

Point CalendarDay::numberCorner() const {
  return {cell.maxX() - kNumberGap, cell.y + kCellLift};
}

std::vector<Rect> CalendarMonth::filledRows() const {
  std::vector<Rect> rows;
  for (const CalendarDay& day : days) {
    if (!day.filled) continue;
    if (!rows.empty() && rows.back().y == day.cell.y) {
      rows.back().width += day.cell.width;
    } else {
      rows.push_back(day.cell);
    }
  }
  return rows;
}

CalendarLayout::CalendarLayout(PackedDate minimumDate, PackedDate maximumDate)
    : minimumDate_(minimumDate), maximumDate_(maximumDate) {
  if (minimumDate == kNoDate || maximumDate == kNoDate) return;
  const int months = monthNumber(maximumDate) - monthNumber(minimumDate) + 1;
  PackedDate first = firstOfMonth(minimumDate);
  int lead = weekdayOf(first);
  for (int month = 0; month < std::min(months, kMostMonths); ++month) {
    const int cells = daysIn(first) + lead;
    const int rows = (cells + kColumns - 1) / kColumns;
    monthOffsets_.push_back(monthOffsets_.back() + rows * kRowHeight + kMonthRoom);
    lead = cells % kColumns;
    first = firstOfNextMonth(first);
  }
}

void CalendarLayout::setWidth(double width) {
  width_ = width;
  colWidth_ = width > kWideAbove ? kWideColumnWidth : kColumnWidth;
}

PackedDate CalendarLayout::clamped(PackedDate date) const {
  return std::min(std::max(date, minimumDate_), maximumDate_);
}

std::optional<int> CalendarLayout::monthIndex(PackedDate date) const {
  if (date == kNoDate || monthCount() == 0) return std::nullopt;
  const int index = monthNumber(date) - monthNumber(minimumDate_);
  if (index < 0 || index >= monthCount()) return std::nullopt;
  return index;
}

PackedDate CalendarLayout::firstDay(int month) const {
  return addMonths(firstOfMonth(minimumDate_), month);
}

int CalendarLayout::monthAt(double y) const {
  const auto after = std::upper_bound(monthOffsets_.begin(), monthOffsets_.end(), y);
  return std::max(0, static_cast<int>(after - monthOffsets_.begin()) - 1);
}

double CalendarLayout::left() const {
  return (width_ - kColumns * colWidth_) / 2 + kColumnsShift;
}

Rect CalendarLayout::cell(PackedDate date, int month) const {
  const int place = weekdayOf(firstOfMonth(date)) + dayOf(date) - 1;
  return {
      left() + place % kColumns * colWidth_,
      monthOffsets_[static_cast<std::size_t>(month)] + kDaysTop + place / kColumns * kRowHeight - kCellLift,
      colWidth_, kRowHeight};
}

CalendarLayout::MonthSpan CalendarLayout::monthsMeeting(const Rect& dirty) const {
  const int first = std::min(monthAt(dirty.y), monthCount());
  const auto end = std::lower_bound(monthOffsets_.begin(), monthOffsets_.end() - 1, dirty.maxY());
  return {first, std::max(first, static_cast<int>(end - monthOffsets_.begin()))};
}

CalendarMonth CalendarLayout::month(int index, const CalendarSelection& selection) const {
  const PackedDate first = firstDay(index);
  const double titleTop = monthOffsets_[static_cast<std::size_t>(index)] + kMonthTopMargin;
  CalendarMonth month;
  month.title = monthTitle(first);
  month.titleRect = {0.0, titleTop, width_, kTitleHeight};
  month.titleBand = {left(), titleTop - kTitleBandLift, kColumns * colWidth_, kTitleHeight};
  month.titleSelected = selection.period == PeriodViewOption::month && selection.contains(first);
  Rect place = cell(first, index);
  const double rightEnd = left() + kColumns * colWidth_;
  for (int number = 1; number <= daysIn(first); ++number) {
    month.days.push_back(day(dayOfMonth(first, number), place, selection));
    place.x += colWidth_;
    if (place.x < rightEnd) continue;
    place.x = left();
    place.y += kRowHeight;
  }
  return month;
}

CalendarDay CalendarLayout::day(PackedDate date, const Rect& cell, const CalendarSelection& selection) const {
  using Role = CalendarDay::Role;
  const bool filled = selection.marks(date);
  const bool inRange = date >= minimumDate_ && date <= maximumDate_;
  const Role role = !inRange ? Role::outOfRange : filled ? Role::selected : Role::plain;
  return {date, std::to_string(dayOf(date)), cell, role, filled};
}

std::optional<Rect> CalendarLayout::todayOutline(PackedDate today, const CalendarSelection& selection) const {
  const auto month = monthIndex(today);
  if (!month) return std::nullopt;
  const bool withinWeek = selection.period == PeriodViewOption::week && selection.contains(today) &&
                          today != selection.first && today != selection.last;
  return cell(today, *month).inset(0.0, withinWeek ? kOutlineInset : 0.0);
}

std::optional<PackedDate> CalendarLayout::hit(Point point, PeriodViewOption period) const {
  if (monthCount() == 0 || point.y >= height()) return std::nullopt;
  if (point.x < left() || point.x >= left() + kColumns * colWidth_) return std::nullopt;
  const int month = monthAt(point.y);
  const PackedDate first = firstDay(month);
  const int column = static_cast<int>((point.x - left()) / colWidth_);
  // Truncated toward zero: the lower part of the title counts as the first row.
  const double below = point.y - monthOffsets_[static_cast<std::size_t>(month)] - kDaysTop;
  const int row = static_cast<int>(below / kRowHeight);
  const int number = row * kColumns + column - weekdayOf(first) + 1;
  switch (period) {
    case PeriodViewOption::day:
      if (number < 1 || number > daysIn(first)) return std::nullopt;
      return dayOfMonth(first, number);
    case PeriodViewOption::week:
      return dayOfMonth(first, std::clamp(number, 1, daysIn(first)));
    case PeriodViewOption::month:
    case PeriodViewOption::year:
      break;
  }
  return first;
}

double CalendarLayout::span(int from, int to) const {
  return monthOffsets_[static_cast<std::size_t>(to)] - monthOffsets_[static_cast<std::size_t>(from)];
}

std::optional<double> CalendarLayout::scrollTop(PackedDate date, double visibleHeight,
                                                NeighbourMonths neighbours) const {
  const auto index = monthIndex(date);
  if (!index || date != clamped(date)) return std::nullopt;
  const int month = *index;
  int end = month + 1;
  bool roomLeft = true;
  if (neighbours == NeighbourMonths::coming) {
    const int last = std::min(month + 1 + kMostNeighbours, monthCount());
    while (end < last && span(month, end + 1) <= visibleHeight) ++end;
    roomLeft = end == last;
  }
  int start = month;
  if (roomLeft) {
    const int earliest = std::max(0, month - kMostNeighbours);
    while (start > earliest && span(start - 1, end) < visibleHeight) --start;
  }
  const double last = std::max(height(), visibleHeight) - visibleHeight;
  return std::min(monthOffsets_[static_cast<std::size_t>(start)], last);
}

}  // namespace tarvel
