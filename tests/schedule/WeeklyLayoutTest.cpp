#include "schedule/WeeklyLayout.h"

#include <gtest/gtest.h>

#include "Items.h"

namespace tarvel {
namespace {

using test::item;
using test::kWeekOf;

WeeklyLayoutInput inputOf(double width, double height, VerticalFit fit = VerticalFit::fit) {
  return {{width, height}, fit, Medium::screen, 300, 1440, kWeekOf};
}

TEST(WeeklyLayout, columnsFollowTheWidth) {
  struct Case {
    double width;
    Medium medium;
    bool reduced;
    double labels;
    double column;
  };
  const Case cases[] = {
      {760.0, Medium::screen, false, 48.0, 100.0},      {550.0, Medium::screen, false, 48.0, 70.0},
      {549.0, Medium::screen, true, 43.0, 494.0 / 7.0}, {335.0, Medium::screen, true, 43.0, 40.0},
      {543.0, Medium::page, false, 48.0, 70.0},         {542.0, Medium::page, true, 43.0, 494.0 / 7.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.width);
    WeeklyLayoutInput input = inputOf(c.width, 600.0);
    input.medium = c.medium;
    const WeeklyLayout layout(input);
    EXPECT_EQ(layout.reducedWidth(), c.reduced);
    EXPECT_DOUBLE_EQ(layout.labelColumnWidth(), c.labels);
    EXPECT_DOUBLE_EQ(layout.columnWidth(), c.column);
    EXPECT_DOUBLE_EQ(layout.columnX(7), c.width - layout.margin());
  }
}

TEST(WeeklyLayout, axisFitsTheHeightOrScrolls) {
  struct Case {
    double height;
    VerticalFit fit;
    Medium medium;
    std::int64_t endOfDay;
    double pointsPerMinute;
    std::int64_t step;
    double wantedHeight;
  };
  const Case cases[] = {
      {1164.0, VerticalFit::fit, Medium::screen, 1440, 1.0, 30, 1164.0},
      {1734.0, VerticalFit::fit, Medium::screen, 1440, 1.5, 15, 1734.0},
      {1733.0, VerticalFit::fit, Medium::screen, 1440, 1709.0 / 1140.0, 30, 1733.0},
      {879.0, VerticalFit::fit, Medium::screen, 1440, 0.75, 30, 879.0},
      {594.0, VerticalFit::fit, Medium::screen, 1440, 0.5, 60, 594.0},
      {600.0, VerticalFit::scroll, Medium::screen, 1440, 1.5, 15, 1734.0},
      {600.0, VerticalFit::scroll, Medium::screen, 1470, 1.5, 15, 1779.0},
      {2000.0, VerticalFit::scroll, Medium::screen, 1440, 1.5, 15, 2000.0},
      {587.0, VerticalFit::fit, Medium::page, 1440, 0.5, 30, 587.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.height);
    WeeklyLayoutInput input = inputOf(800.0, c.height, c.fit);
    input.medium = c.medium;
    input.endOfDay = c.endOfDay;
    const WeeklyLayout layout(input);
    EXPECT_DOUBLE_EQ(layout.pointsPerMinute(), c.pointsPerMinute);
    EXPECT_EQ(layout.labelStep(), c.step);
    EXPECT_DOUBLE_EQ(WeeklyLayout::heightForAvailableHeight(c.height, input), c.wantedHeight);
  }
}

TEST(WeeklyLayout, labelsStandOnATwelveHourClockToTheEndOfTheAxis) {
  WeeklyLayoutInput input = inputOf(760.0, 24.0 + 1170 * 0.5);
  input.endOfDay = 1470;
  const auto ticks = WeeklyLayout(input).ticks();
  ASSERT_EQ(ticks.size(), 20U);
  EXPECT_EQ(ticks.front(), (AxisTick{300, 12.0, "5:00"}));
  EXPECT_EQ(ticks[7], (AxisTick{720, 222.0, "12:00"}));
  EXPECT_EQ(ticks[8].text, "1:00");
  EXPECT_EQ(ticks.back(), (AxisTick{1440, 582.0, "12:00"}));
}

TEST(WeeklyLayout, placesItemsAndReturnsThoseThatADirtyRectangleMeets) {
  const WeeklyLayout layout(inputOf(760.0, 1164.0));
  const ScheduleItems items = {item(0, 300, 60), item(3, 720, 90), item(3, 780, 60), item(6, 1380, 60),
                               item(7, 600, 60)};
  EXPECT_EQ(layout.itemRect(*items[1]), (Rect{348.0, 432.0, 100.0, 90.0}));
  const auto all = layout.itemsMeeting(items, {0.0, 0.0, 760.0, 1164.0});
  EXPECT_EQ(all.size(), 4U) << "an item of no day of the week is left out";
  const auto some = layout.itemsMeeting(items, {400.0, 500.0, 5.0, 5.0});
  ASSERT_EQ(some.size(), 2U);
  EXPECT_EQ(some[0].item, items[1].get()) << "the later of two that overlap comes last";
  EXPECT_EQ(some[1].item, items[2].get());
  EXPECT_TRUE(layout.itemsMeeting(items, {460.0, 500.0, 5.0, 5.0}).empty());
}

TEST(WeeklyLayout, blendsPastDaysAndFramesToday) {
  const WeeklyLayout layout(inputOf(760.0, 600.0));
  struct Case {
    PackedDate today;
    int pastDays;
    int todayColumn;  ///< -1 for none
  };
  const Case cases[] = {
      {kNoDate, 0, -1},
      {packedDate(2026, 3, 14), 0, -1},
      {packedDate(2026, 3, 15), 0, 0},
      {packedDate(2026, 3, 16), 1, 1},
      {packedDate(2026, 3, 21), 6, 6},
      {packedDate(2026, 3, 22), 7, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(shortDateText(c.today));
    const auto past = layout.pastRect(c.today);
    EXPECT_EQ(past.value_or(Rect{}), c.pastDays > 0 ? (Rect{48.0, 0.0, 100.0 * c.pastDays, 600.0}) : Rect{});
    const auto today = layout.todayRect(c.today);
    EXPECT_EQ(today.value_or(Rect{}),
              c.todayColumn >= 0 ? (Rect{48.0 + 100.0 * c.todayColumn, 3.0, 100.0, 594.0}) : Rect{});
  }
}

TEST(WeeklyLayout, selectionOfTodayLiesInsideTodaysFrame) {
  const WeeklyLayout layout(inputOf(760.0, 600.0));
  const PackedDate wednesday = packedDate(2026, 3, 18);
  EXPECT_EQ(layout.selectionRect(wednesday, kNoDate), (Rect{348.0, 1.0, 100.0, 598.0}));
  EXPECT_EQ(layout.selectionRect(wednesday, wednesday), (Rect{348.0, 3.0, 100.0, 594.0}));
  EXPECT_FALSE(layout.selectionRect(packedDate(2026, 3, 22), wednesday));
  EXPECT_FALSE(layout.selectionRect(kNoDate, kNoDate));
}

TEST(WeeklyLayout, marksTheMomentWithinAxisAndWeek) {
  const WeeklyLayout layout(inputOf(760.0, 1164.0));
  const PackedDate tuesday = packedDate(2026, 3, 17);
  EXPECT_EQ(layout.timeMarkerRect(tuesday, 600), (Rect{235.0, 303.0, 126.0, 18.0}));
  EXPECT_TRUE(layout.timeMarkerRect(tuesday, 300));
  EXPECT_TRUE(layout.timeMarkerRect(tuesday, 1440));
  EXPECT_FALSE(layout.timeMarkerRect(tuesday, 299));
  EXPECT_FALSE(layout.timeMarkerRect(tuesday, 1441));
  EXPECT_FALSE(layout.timeMarkerRect(packedDate(2026, 3, 22), 600));
}

TEST(WeeklyLayout, tellsDayAndMinuteOfAPoint) {
  const WeeklyLayout layout(inputOf(760.0, 594.0));
  struct Case {
    Point point;
    int day;  ///< -1 for outside
    std::int64_t minute;
  };
  const Case cases[] = {
      {{47.9, 100.0}, -1, 0}, {{48.0, 12.0}, 0, 300},  {{48.0, 11.9}, -1, 0},    {{747.9, 12.9}, 6, 301},
      {{748.0, 50.0}, -1, 0}, {{150.0, 62.0}, 1, 400}, {{50.0, 581.9}, 0, 1439}, {{50.0, 582.0}, -1, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.point.x << " " << c.point.y);
    const auto hit = layout.hit(c.point);
    ASSERT_EQ(hit.has_value(), c.day >= 0);
    if (!hit) continue;
    EXPECT_EQ(hit->day, c.day);
    EXPECT_EQ(hit->minute, c.minute);
  }
}

TEST(WeeklyLayout, scrollsAMinuteToAQuarterOfTheHeight) {
  const WeeklyLayout layout(inputOf(760.0, 1734.0, VerticalFit::scroll));
  EXPECT_DOUBLE_EQ(layout.scrollOffset(300, 600.0), 0.0);
  EXPECT_DOUBLE_EQ(layout.scrollOffset(720, 600.0), 420 * 1.5 + 24.0 - 150.0);
  EXPECT_DOUBLE_EQ(layout.scrollOffset(1440, 600.0), 1140 * 1.5 + 24.0 - 600.0);
  EXPECT_DOUBLE_EQ(layout.scrollOffset(720, 4000.0), 0.0);
}

}  // namespace
}  // namespace tarvel
