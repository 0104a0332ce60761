#include "schedule/CalendarLayout.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace tarvel {
namespace {

using Role = CalendarDay::Role;

constexpr PackedDate ymd(int year, int month, int day) {
  return packedDate(year, month, day);
}

/// February to May 2026, from a Sunday to a Saturday. February begins on a Sunday.
CalendarLayout spring(double width = 180.0) {
  CalendarLayout layout(ymd(2026, 2, 22), ymd(2026, 5, 23));
  layout.setWidth(width);
  return layout;
}

TEST(CalendarSelection, isThePeriodAroundTheDate) {
  using P = PeriodViewOption;
  const std::tuple<PackedDate, P, PackedDate, PackedDate, const char*> cases[] = {
      {ymd(2026, 3, 18), P::day, ymd(2026, 3, 18), ymd(2026, 3, 18), "Wednesday, March 18, 2026"},
      {ymd(2025, 1, 1), P::week, ymd(2024, 12, 29), ymd(2025, 1, 4), "Week of December 29, 2024"},
      {ymd(2024, 2, 10), P::month, ymd(2024, 2, 1), ymd(2024, 2, 29), "February 2024"},
      {ymd(2026, 2, 28), P::year, ymd(2026, 2, 1), ymd(2026, 2, 28), "February 2026"},
      {kNoDate, P::week, kNoDate, kNoDate, ""}};
  for (const auto& [date, period, first, last, text] : cases) {
    const auto selection = CalendarSelection::around(date, period);
    EXPECT_EQ(selection, (CalendarSelection{period, first, last})) << text;
    EXPECT_EQ(selection.text(), text);
    EXPECT_EQ(selection.contains(date), date != kNoDate) << text;
  }
}

TEST(CalendarLayout, monthsAreAsHighAsTheirWeeks) {
  const std::tuple<PackedDate, PackedDate, std::vector<double>> cases[] = {
      {ymd(2026, 2, 22), ymd(2026, 5, 23), {6.0, 92.0, 192.0, 292.0, 406.0}},  // 4, 5, 5 and 6 rows
      {ymd(2025, 11, 30), ymd(2026, 1, 3), {6.0, 120.0, 220.0, 320.0}},        // over the new year
      {kNoDate, ymd(2026, 5, 23), {6.0}},
      {ymd(2026, 5, 1), ymd(2026, 2, 28), {6.0}}};
  for (const auto& [minimum, maximum, offsets] : cases)
    EXPECT_EQ(CalendarLayout(minimum, maximum).monthOffsets(), offsets);
  EXPECT_EQ(CalendarLayout(ymd(2026, 1, 1), ymd(65535, 12, 31)).monthCount(), CalendarLayout::kMostMonths);
  for (const auto& [width, column, left] :
       {std::tuple{160.0, 18.0, 18.0}, {161.0, 20.0, 11.5}, {180.0, 20.0, 21.0}})
    EXPECT_EQ(spring(width).month(1, {}).days.front().cell, (Rect{left, 115.0, column, 14.0}));
}

TEST(CalendarLayout, marksTheSelectionAndWhatIsOutOfRange) {
  const auto daysOf = [](const CalendarMonth& month, Role role) {
    std::set<int> days;
    for (const CalendarDay& day : month.days)
      if (day.role == role) days.insert(dayOf(day.date));
    return days;
  };
  const CalendarLayout layout = spring();
  const auto week = CalendarSelection::around(ymd(2026, 4, 1), PeriodViewOption::week);
  EXPECT_EQ(daysOf(layout.month(1, week), Role::selected), (std::set<int>{29, 30, 31}));
  EXPECT_EQ(layout.month(1, week).filledRows(), (std::vector<Rect>{{21.0, 171.0, 60.0, 14.0}}));
  EXPECT_EQ(layout.month(2, week).filledRows(), (std::vector<Rect>{{81.0, 215.0, 80.0, 14.0}}));
  EXPECT_EQ(daysOf(layout.month(0, week), Role::outOfRange).size(), 21U);
  EXPECT_EQ(daysOf(layout.month(3, week), Role::outOfRange).size(), 8U);
  const auto month = CalendarSelection::around(ymd(2026, 3, 4), PeriodViewOption::month);
  EXPECT_TRUE(layout.month(1, month).titleSelected);
  EXPECT_TRUE(layout.month(1, month).filledRows().empty()) << "a month is marked at its title alone";
  // The cells of a week at the end of the range belong to the selection, their numbers stay pale.
  CalendarLayout narrow(ymd(2026, 3, 10), ymd(2026, 3, 12));
  const auto cut = narrow.month(0, CalendarSelection::around(ymd(2026, 3, 10), PeriodViewOption::week));
  EXPECT_EQ(daysOf(cut, Role::selected), (std::set<int>{10, 11, 12}));
  EXPECT_EQ(cut.filledRows().front().width, 7 * narrow.colWidth());
}

TEST(CalendarLayout, outlineOfTodayIsLowerWithinASelectedWeek) {
  const auto week = CalendarSelection::around(ymd(2026, 3, 18), PeriodViewOption::week);
  const auto day = CalendarSelection::around(ymd(2026, 3, 18), PeriodViewOption::day);
  const std::tuple<PackedDate, CalendarSelection, std::optional<Rect>> cases[] = {
      {ymd(2026, 3, 18), week, Rect{81.0, 144.0, 20.0, 12.0}},
      {ymd(2026, 3, 15), week, Rect{21.0, 143.0, 20.0, 14.0}},
      {ymd(2026, 3, 25), week, Rect{81.0, 157.0, 20.0, 14.0}},
      {ymd(2026, 3, 18), day, Rect{81.0, 143.0, 20.0, 14.0}},
      {ymd(2026, 2, 1), day, Rect{21.0, 29.0, 20.0, 14.0}},  // out of range, in a month that is shown
      {ymd(2026, 6, 1), day, std::nullopt}};
  for (const auto& [today, selection, outline] : cases)
    EXPECT_EQ(spring().todayOutline(today, selection), outline) << today;
}

TEST(CalendarLayout, everyDayIsHitWhereItIsDrawn) {
  const CalendarLayout layout = spring();
  for (int index = 0; index < layout.monthCount(); ++index) {
    for (const CalendarDay& day : layout.month(index, {}).days) {
      const Point middle{day.cell.x + day.cell.width / 2, day.cell.y + day.cell.height / 2};
      EXPECT_EQ(layout.hit(middle, PeriodViewOption::day), day.date) << longDateText(day.date);
    }
  }
}

TEST(CalendarLayout, clicksBesideTheDaysGoByThePeriod) {
  // January 2026 begins on a Thursday and ends on a Saturday; its days begin at y 30.
  CalendarLayout layout(ymd(2026, 1, 4), ymd(2026, 2, 28));
  layout.setWidth(180.0);
  constexpr PackedDate none = kNoDate, first = ymd(2026, 1, 1);
  const std::tuple<Point, PackedDate, PackedDate, PackedDate> cases[] = {
      {{25.0, 31.0}, none, first, first},    // the blank before the first
      {{105.0, 17.0}, first, first, first},  // the title's lower part is the first row
      {{105.0, 15.0}, none, first, first},   // its upper part is above it
      {{105.0, 44.0}, ymd(2026, 1, 8), ymd(2026, 1, 8), first},
      {{20.9, 50.0}, none, none, none},
      {{160.9, 50.0}, ymd(2026, 1, 10), ymd(2026, 1, 10), first},
      {{161.0, 50.0}, none, none, none},
      {{25.0, 105.0}, none, ymd(2026, 1, 31), first},  // below the last row
      {{25.0, 192.0}, none, none, none}};
  for (const auto& [point, day, week, month] : cases) {
    SCOPED_TRACE(testing::Message() << point.x << " " << point.y);
    EXPECT_EQ(layout.hit(point, PeriodViewOption::day).value_or(none), day);
    EXPECT_EQ(layout.hit(point, PeriodViewOption::week).value_or(none), week);
    EXPECT_EQ(layout.hit(point, PeriodViewOption::month).value_or(none), month);
  }
}

TEST(CalendarLayout, scrollsTheMonthAndItsNeighboursIntoView) {
  // The months begin at 6, 106, 192, 292, 392, 506, 606, 706, 820, 920, 1020, 1120 and end at 1220.
  const CalendarLayout layout(ymd(2026, 1, 1), ymd(2026, 12, 31));
  const std::tuple<int, double, double, double> cases[] = {
      {6, 90.0, 506.0, 506.0},  {6, 214.0, 506.0, 506.0},  {6, 215.0, 392.0, 506.0},
      {6, 314.0, 392.0, 506.0}, {6, 315.0, 292.0, 506.0},  {6, 415.0, 192.0, 506.0},
      {6, 528.0, 192.0, 506.0}, {6, 529.0, 192.0, 392.0},  {6, 800.0, 192.0, 192.0},
      {2, 187.0, 6.0, 106.0},   {11, 301.0, 820.0, 919.0}, {12, 215.0, 1005.0, 1005.0},
      {12, 2000.0, 0.0, 0.0}};
  for (const auto& [month, visible, past, coming] : cases) {
    SCOPED_TRACE(testing::Message() << "month " << month << " in " << visible);
    EXPECT_EQ(layout.scrollTop(ymd(2026, month, 15), visible, NeighbourMonths::past), past);
    EXPECT_EQ(layout.scrollTop(ymd(2026, month, 15), visible, NeighbourMonths::coming), coming);
  }
  EXPECT_FALSE(spring().scrollTop(ymd(2026, 2, 21), 300.0, NeighbourMonths::past))
      << "shown, but out of range";
}

}  // namespace
}  // namespace tarvel
