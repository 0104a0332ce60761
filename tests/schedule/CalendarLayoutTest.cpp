#include "schedule/CalendarLayout.h"

#include <gtest/gtest.h>

#include <set>

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
  struct Case {
    PackedDate date;
    PeriodViewOption period;
    PackedDate first;
    PackedDate last;
    const char* text;
  };
  const Case cases[] = {
      {ymd(2026, 3, 18), PeriodViewOption::day, ymd(2026, 3, 18), ymd(2026, 3, 18),
       "Wednesday, March 18, 2026"},
      {ymd(2026, 3, 18), PeriodViewOption::week, ymd(2026, 3, 15), ymd(2026, 3, 21),
       "Week of March 15, 2026"},
      {ymd(2025, 1, 1), PeriodViewOption::week, ymd(2024, 12, 29), ymd(2025, 1, 4),
       "Week of December 29, 2024"},
      {ymd(2024, 2, 10), PeriodViewOption::month, ymd(2024, 2, 1), ymd(2024, 2, 29), "February 2024"},
      {ymd(2026, 2, 28), PeriodViewOption::year, ymd(2026, 2, 1), ymd(2026, 2, 28), "February 2026"},
      {kNoDate, PeriodViewOption::week, kNoDate, kNoDate, ""},
  };
  for (const Case& c : cases) {
    const auto selection = CalendarSelection::around(c.date, c.period);
    EXPECT_EQ(selection, (CalendarSelection{c.period, c.first, c.last})) << c.text;
    EXPECT_EQ(selection.text(), c.text);
    EXPECT_EQ(selection.contains(c.date), c.date != kNoDate) << c.text;
  }
}

TEST(CalendarSelection, stepsByItsPeriod) {
  struct Case {
    PackedDate date;
    PeriodViewOption period;
    PackedDate previous;
    PackedDate next;
  };
  const Case cases[] = {
      {ymd(2025, 12, 31), PeriodViewOption::day, ymd(2025, 12, 30), ymd(2026, 1, 1)},
      {ymd(2026, 3, 3), PeriodViewOption::week, ymd(2026, 2, 24), ymd(2026, 3, 10)},
      {ymd(2026, 3, 31), PeriodViewOption::month, ymd(2026, 2, 28), ymd(2026, 4, 30)},
      {ymd(2024, 1, 31), PeriodViewOption::year, ymd(2023, 12, 31), ymd(2024, 2, 29)},
      {kNoDate, PeriodViewOption::month, kNoDate, kNoDate},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(longDateText(c.date));
    EXPECT_EQ(previousInPeriods(c.date, c.period), c.previous);
    EXPECT_EQ(nextInPeriods(c.date, c.period), c.next);
  }
}

TEST(CalendarLayout, monthsAreAsHighAsTheirWeeks) {
  struct Case {
    PackedDate minimum;
    PackedDate maximum;
    std::vector<double> offsets;
  };
  const Case cases[] = {
      {ymd(2026, 2, 22), ymd(2026, 5, 23), {6.0, 92.0, 192.0, 292.0, 406.0}},  // 4, 5, 5 and 6 rows
      {ymd(2025, 11, 30), ymd(2026, 1, 3), {6.0, 120.0, 220.0, 320.0}},        // over the new year
      {ymd(2024, 2, 11), ymd(2024, 2, 12), {6.0, 106.0}},
      {kNoDate, ymd(2026, 5, 23), {6.0}},
      {ymd(2026, 2, 22), kNoDate, {6.0}},
      {ymd(2026, 5, 1), ymd(2026, 2, 28), {6.0}},
  };
  for (const Case& c : cases) {
    const CalendarLayout layout(c.minimum, c.maximum);
    EXPECT_EQ(layout.monthOffsets(), c.offsets);
    EXPECT_EQ(layout.monthCount(), static_cast<int>(c.offsets.size()) - 1);
  }
  EXPECT_EQ(CalendarLayout(ymd(2026, 1, 1), ymd(65535, 12, 31)).monthCount(), CalendarLayout::kMostMonths);
}

TEST(CalendarLayout, columnsFollowTheWidth) {
  struct Case {
    double width;
    double colWidth;
    double left;
  };
  for (const Case& c : {Case{160.0, 18.0, 18.0}, {161.0, 20.0, 11.5}, {180.0, 20.0, 21.0}}) {
    const CalendarMonth march = spring(c.width).month(1, {});
    EXPECT_EQ(spring(c.width).colWidth(), c.colWidth);
    EXPECT_EQ(march.titleRect, (Rect{0.0, 98.0, c.width, 18.0}));
    EXPECT_EQ(march.days.front().cell, (Rect{c.left, 115.0, c.colWidth, 14.0}));
    EXPECT_EQ(march.days[8].cell, (Rect{c.left + c.colWidth, 129.0, c.colWidth, 14.0}));
    EXPECT_EQ(march.days[8].numberCorner(), (Point{c.left - 3.0 + 2 * c.colWidth, 130.0}));
  }
}

TEST(CalendarLayout, monthsRunOnInTheWeekdayAfterTheLast) {
  const CalendarLayout layout = spring();
  for (int index = 0; index < layout.monthCount(); ++index) {
    const CalendarMonth month = layout.month(index, {});
    SCOPED_TRACE(month.title);
    const PackedDate first = month.days.front().date;
    EXPECT_EQ(month.title, monthTitle(first));
    EXPECT_EQ(month.days.size(), static_cast<std::size_t>(daysInMonth(yearOf(first), monthOf(first))));
    EXPECT_EQ(month.days.front().cell.x, 21.0 + 20.0 * weekdayOf(first));
    EXPECT_EQ(month.days.back().text, std::to_string(month.days.size()));
    EXPECT_LE(month.days.back().cell.maxY() + 7.0,
              layout.monthOffsets()[static_cast<std::size_t>(index) + 1]);
  }
}

TEST(CalendarLayout, marksTheSelectionAndWhatIsOutOfRange) {
  const auto rolesOf = [](const CalendarMonth& month, Role role) {
    std::set<int> days;
    for (const CalendarDay& day : month.days) {
      if (day.role == role) days.insert(dayOf(day.date));
    }
    return days;
  };
  const CalendarLayout layout = spring();
  const auto week = CalendarSelection::around(ymd(2026, 4, 1), PeriodViewOption::week);
  const CalendarMonth march = layout.month(1, week);
  EXPECT_EQ(rolesOf(march, Role::selected), (std::set<int>{29, 30, 31}));
  EXPECT_EQ(march.filledRows(), (std::vector<Rect>{{21.0, 171.0, 60.0, 14.0}}));
  EXPECT_EQ(layout.month(2, week).filledRows(), (std::vector<Rect>{{81.0, 215.0, 80.0, 14.0}}));
  EXPECT_EQ(rolesOf(layout.month(0, week), Role::outOfRange).size(), 21U);
  EXPECT_EQ(rolesOf(layout.month(3, week), Role::outOfRange),
            (std::set<int>{24, 25, 26, 27, 28, 29, 30, 31}));

  const CalendarMonth chosen =
      layout.month(1, CalendarSelection::around(ymd(2026, 3, 4), PeriodViewOption::month));
  EXPECT_TRUE(chosen.titleSelected);
  EXPECT_TRUE(chosen.filledRows().empty()) << "a month is marked at its title alone";
  EXPECT_TRUE(rolesOf(chosen, Role::selected).empty());

  const CalendarMonth ofYear =
      layout.month(1, CalendarSelection::around(ymd(2026, 3, 4), PeriodViewOption::year));
  EXPECT_FALSE(ofYear.titleSelected);
  EXPECT_EQ(ofYear.filledRows().size(), 5U);

  // The cells of a week at the end of the range belong to the selection, their numbers stay pale.
  CalendarLayout narrow(ymd(2026, 3, 10), ymd(2026, 3, 12));
  const CalendarMonth cut =
      narrow.month(0, CalendarSelection::around(ymd(2026, 3, 10), PeriodViewOption::week));
  EXPECT_EQ(rolesOf(cut, Role::selected), (std::set<int>{10, 11, 12}));
  EXPECT_EQ(cut.filledRows().front().width, 7 * narrow.colWidth());
}

TEST(CalendarLayout, outlineOfTodayIsLowerWithinASelectedWeek) {
  const CalendarLayout layout = spring();
  const auto week = CalendarSelection::around(ymd(2026, 3, 18), PeriodViewOption::week);
  const auto day = CalendarSelection::around(ymd(2026, 3, 18), PeriodViewOption::day);
  struct Case {
    PackedDate today;
    CalendarSelection selection;
    std::optional<Rect> outline;
  };
  const Case cases[] = {
      {ymd(2026, 3, 18), week, Rect{81.0, 144.0, 20.0, 12.0}},
      {ymd(2026, 3, 15), week, Rect{21.0, 143.0, 20.0, 14.0}},
      {ymd(2026, 3, 21), week, Rect{141.0, 143.0, 20.0, 14.0}},
      {ymd(2026, 3, 25), week, Rect{81.0, 157.0, 20.0, 14.0}},
      {ymd(2026, 3, 18), day, Rect{81.0, 143.0, 20.0, 14.0}},
      {ymd(2026, 2, 1), day, Rect{21.0, 29.0, 20.0, 14.0}},  // out of range, in a month that is shown
      {ymd(2026, 1, 31), day, std::nullopt},
      {ymd(2026, 6, 1), day, std::nullopt},
      {kNoDate, day, std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(layout.todayOutline(c.today, c.selection), c.outline) << c.today;
}

TEST(CalendarLayout, findsTheMonthsOfADirtyRectangle) {
  const CalendarLayout layout = spring();
  struct Case {
    double top;
    double bottom;
    int first;
    int end;
  };
  const Case cases[] = {{0.0, 406.0, 0, 4},   {0.0, 5.0, 0, 0},    {0.0, 7.0, 0, 1},     {91.0, 92.0, 0, 1},
                        {92.0, 192.0, 1, 2},  {92.0, 192.5, 1, 3}, {300.0, 301.0, 3, 4}, {406.0, 900.0, 4, 4},
                        {405.0, 900.0, 3, 4}, {191.0, 193.0, 1, 3}};
  for (const Case& c : cases) {
    const auto span = layout.monthsMeeting({0.0, c.top, 180.0, c.bottom - c.top});
    EXPECT_EQ(span.first, c.first) << c.top << " to " << c.bottom;
    EXPECT_EQ(span.end, c.end) << c.top << " to " << c.bottom;
  }
  const auto none = CalendarLayout().monthsMeeting({0.0, 0.0, 180.0, 900.0});
  EXPECT_EQ(none.first, none.end);
}

TEST(CalendarLayout, everyDayIsHitWhereItIsDrawn) {
  for (const double width : {160.0, 180.0, 261.0}) {
    const CalendarLayout layout = spring(width);
    for (int index = 0; index < layout.monthCount(); ++index) {
      for (const CalendarDay& day : layout.month(index, {}).days) {
        const Point middle{day.cell.x + day.cell.width / 2, day.cell.y + day.cell.height / 2};
        EXPECT_EQ(layout.hit(middle, PeriodViewOption::day), day.date)
            << width << ": " << longDateText(day.date);
      }
    }
  }
}

TEST(CalendarLayout, clicksBesideTheDaysGoByThePeriod) {
  // January 2026 begins on a Thursday and ends on a Saturday; its days begin at y 30.
  CalendarLayout layout(ymd(2026, 1, 4), ymd(2026, 2, 28));
  layout.setWidth(180.0);
  constexpr PackedDate none = kNoDate;
  constexpr PackedDate first = ymd(2026, 1, 1);
  struct Case {
    Point point;
    PackedDate day;
    PackedDate week;
    PackedDate month;
  };
  const Case cases[] = {
      {{25.0, 31.0}, none, first, first},    // the blank before the first
      {{25.0, 17.0}, none, first, first},    // the title's lower part is the first row
      {{105.0, 17.0}, first, first, first},  // and so is this
      {{105.0, 15.0}, none, first, first},   // its upper part is above it
      {{105.0, 1.0}, none, first, first},    // above all months
      {{105.0, 43.9}, first, first, first},  //
      {{105.0, 44.0}, ymd(2026, 1, 8), ymd(2026, 1, 8), first},
      {{20.9, 50.0}, none, none, none},
      {{21.0, 50.0}, ymd(2026, 1, 4), ymd(2026, 1, 4), first},
      {{160.9, 50.0}, ymd(2026, 1, 10), ymd(2026, 1, 10), first},
      {{161.0, 50.0}, none, none, none},
      {{25.0, 105.0}, none, ymd(2026, 1, 31), first},  // below the last row
      {{25.0, 106.0}, none, ymd(2026, 2, 1), ymd(2026, 2, 1)},
      {{25.0, 192.0}, none, none, none},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.point.x << " " << c.point.y);
    EXPECT_EQ(layout.hit(c.point, PeriodViewOption::day).value_or(none), c.day);
    EXPECT_EQ(layout.hit(c.point, PeriodViewOption::week).value_or(none), c.week);
    EXPECT_EQ(layout.hit(c.point, PeriodViewOption::month).value_or(none), c.month);
    EXPECT_EQ(layout.hit(c.point, PeriodViewOption::year).value_or(none), c.month);
  }
  EXPECT_FALSE(CalendarLayout().hit({25.0, 5.0}, PeriodViewOption::month));
}

TEST(CalendarLayout, scrollsTheMonthAndItsNeighboursIntoView) {
  // 2026 whole: months of 5, 4, 5, 5, 6, 5, 5, 6, 5, 5, 5, 5 rows.
  const CalendarLayout layout(ymd(2026, 1, 1), ymd(2026, 12, 31));
  const std::vector<double> tops = {6, 106, 192, 292, 392, 506, 606, 706, 820, 920, 1020, 1120, 1220};
  ASSERT_EQ(layout.monthOffsets(), tops);
  struct Case {
    int month;
    double visible;
    double past;
    double coming;
  };
  const Case cases[] = {
      {6, 90.0, 506.0, 506.0},   // the month is higher than the room
      {6, 214.0, 506.0, 506.0},  // the month before would have to leave some room
      {6, 215.0, 392.0, 506.0},    {6, 314.0, 392.0, 506.0},
      {6, 315.0, 292.0, 506.0},    {6, 415.0, 192.0, 506.0},
      {6, 528.0, 192.0, 506.0},    {6, 529.0, 192.0, 392.0},  // three coming months, and room for one before
      {6, 800.0, 192.0, 192.0},                               // never more than three
      {2, 150.0, 106.0, 106.0},    {2, 187.0, 6.0, 106.0},
      {2, 501.0, 6.0, 6.0},        {11, 150.0, 1020.0, 1020.0},
      {11, 200.0, 1020.0, 1020.0}, {11, 301.0, 820.0, 919.0},
      {12, 215.0, 1005.0, 1005.0},  // not beyond the end
      {12, 2000.0, 0.0, 0.0},       // the view is as high as the room
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "month " << c.month << " in " << c.visible);
    const PackedDate date = ymd(2026, c.month, 15);
    EXPECT_EQ(layout.scrollTop(date, c.visible, NeighbourMonths::past), c.past);
    EXPECT_EQ(layout.scrollTop(date, c.visible, NeighbourMonths::coming), c.coming);
  }
  EXPECT_FALSE(layout.scrollTop(ymd(2027, 1, 1), 300.0, NeighbourMonths::past));
  EXPECT_FALSE(spring().scrollTop(ymd(2026, 2, 21), 300.0, NeighbourMonths::past))
      << "shown, but out of range";
  EXPECT_FALSE(spring().scrollTop(kNoDate, 300.0, NeighbourMonths::past));
}

}  // namespace
}  // namespace tarvel
