#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "Items.h"
#include "schedule/DailyLayout.h"
#include "schedule/WeeklyLayout.h"

namespace tarvel {
namespace {

using test::item;
using test::kWeekOf;

WeeklyLayoutInput inputOf(double width, double height, VerticalFit fit = VerticalFit::fit) {
  return {{{width, height}, fit, Medium::screen, {300, 1440}}, kWeekOf};
}

TEST(WeeklyLayout, columnsFollowTheWidth) {
  const std::tuple<double, Medium, double, double> cases[] = {{760.0, Medium::screen, 48.0, 100.0},
                                                              {550.0, Medium::screen, 48.0, 70.0},
                                                              {549.0, Medium::screen, 43.0, 494.0 / 7.0},
                                                              {543.0, Medium::page, 48.0, 70.0},
                                                              {542.0, Medium::page, 43.0, 494.0 / 7.0}};
  for (const auto& [width, medium, labels, column] : cases) {
    WeeklyLayoutInput input = inputOf(width, 600.0);
    input.page.medium = medium;
    EXPECT_DOUBLE_EQ(WeeklyLayout(input).labelColumnWidth(), labels) << width;
    EXPECT_DOUBLE_EQ(WeeklyLayout(input).columnWidth(), column) << width;
  }
}

TEST(WeeklyLayout, axisFitsTheHeightOrScrolls) {
  // The height, the fit and the end of the day; points a minute, minutes between labels, the height wanted.
  const std::tuple<double, VerticalFit, std::int64_t, double, std::int64_t, double> cases[] = {
      {1734.0, VerticalFit::fit, 1440, 1.5, 15, 1734.0},
      {1733.0, VerticalFit::fit, 1440, 1709.0 / 1140.0, 30, 1733.0},
      {879.0, VerticalFit::fit, 1440, 0.75, 30, 879.0},
      {594.0, VerticalFit::fit, 1440, 0.5, 60, 594.0},
      {600.0, VerticalFit::scroll, 1470, 1.5, 15, 1779.0},
      {2000.0, VerticalFit::scroll, 1440, 1.5, 15, 2000.0}};
  for (const auto& [height, fit, endOfDay, pointsPerMinute, step, wantedHeight] : cases) {
    SCOPED_TRACE(height);
    WeeklyLayoutInput input = inputOf(800.0, height, fit);
    input.page.dayRange.endOfDay = endOfDay;
    const WeeklyLayout layout(input);
    EXPECT_DOUBLE_EQ(layout.pointsPerMinute(), pointsPerMinute);
    EXPECT_EQ(layout.labelStep(), step);
    EXPECT_DOUBLE_EQ(WeeklyLayout::heightForAvailableHeight(height, input.page), wantedHeight);
  }
  const auto ticks = WeeklyLayout(inputOf(760.0, 594.0)).ticks();
  EXPECT_EQ(ticks.front(), (AxisTick{300, 12.0, "5:00"}));
  EXPECT_EQ(ticks[7], (AxisTick{720, 222.0, "12:00"}));
  EXPECT_EQ(ticks[8].text, "1:00");
}

TEST(WeeklyLayout, placesItemsAndReturnsThoseThatADirtyRectangleMeets) {
  const WeeklyLayout layout(inputOf(760.0, 1164.0));
  const ScheduleItems items = {item(0, 300, 60), item(3, 720, 90), item(3, 780, 60), item(6, 1380, 60),
                               item(7, 600, 60), item(3, 750, 0),  item(3, 780, -30)};
  EXPECT_EQ(layout.itemRect(*items[1]), (Rect{348.0, 432.0, 100.0, 90.0}));
  const auto all = layout.itemsMeeting(items, {0.0, 0.0, 760.0, 1164.0});
  EXPECT_EQ(all.size(), 4U) << "an item of no day of the week, or of no length, is left out";
  const auto some = layout.itemsMeeting(items, {400.0, 500.0, 5.0, 5.0});
  ASSERT_EQ(some.size(), 2U);
  EXPECT_EQ(some[0].item, items[1].get()) << "the later of two that overlap comes last";
  EXPECT_EQ(some[1].item, items[2].get());
  EXPECT_TRUE(layout.itemsMeeting(items, {460.0, 500.0, 5.0, 5.0}).empty());
}

TEST(WeeklyLayout, blendsPastDaysAndFramesTodayAroundItsSelection) {
  const WeeklyLayout layout(inputOf(760.0, 600.0));
  const std::tuple<PackedDate, int, int> cases[] = {{kNoDate, 0, -1},
                                                    {packedDate(2026, 3, 14), 0, -1},
                                                    {packedDate(2026, 3, 15), 0, 0},
                                                    {packedDate(2026, 3, 21), 6, 6},
                                                    {packedDate(2026, 3, 22), 7, -1}};
  for (const auto& [today, pastDays, column] : cases) {
    SCOPED_TRACE(shortDateText(today));
    EXPECT_EQ(layout.pastRect(today).value_or(Rect{}),
              pastDays > 0 ? (Rect{48.0, 0.0, 100.0 * pastDays, 600.0}) : Rect{});
    EXPECT_EQ(layout.todayRect(today).value_or(Rect{}),
              column >= 0 ? (Rect{48.0 + 100.0 * column, 3.0, 100.0, 594.0}) : Rect{});
  }
  const PackedDate wednesday = packedDate(2026, 3, 18);
  EXPECT_EQ(layout.selectionRect(wednesday, kNoDate), (Rect{348.0, 1.0, 100.0, 598.0}));
  EXPECT_EQ(layout.selectionRect(wednesday, wednesday), (Rect{348.0, 3.0, 100.0, 594.0}));
  EXPECT_FALSE(layout.selectionRect(packedDate(2026, 3, 22), wednesday));
}

TEST(WeeklyLayout, marksTheMomentWithinAxisAndWeek) {
  const WeeklyLayout layout(inputOf(760.0, 1164.0));
  const PackedDate tuesday = packedDate(2026, 3, 17);
  EXPECT_EQ(layout.timeMarkerRect(tuesday, 600), (Rect{235.0, 303.0, 126.0, 18.0}));
  EXPECT_TRUE(layout.timeMarkerRect(tuesday, 300) && layout.timeMarkerRect(tuesday, 1440));
  EXPECT_FALSE(layout.timeMarkerRect(tuesday, 299) || layout.timeMarkerRect(tuesday, 1441));
  EXPECT_FALSE(layout.timeMarkerRect(packedDate(2026, 3, 22), 600));
}

TEST(WeeklyLayout, tellsDayAndMinuteOfAPoint) {
  const WeeklyLayout layout(inputOf(760.0, 594.0));
  const std::tuple<Point, int, std::int64_t> cases[] = {
      {{48.0, 12.0}, 0, 300}, {{747.9, 12.9}, 6, 301}, {{150.0, 62.0}, 1, 400}, {{50.0, 581.9}, 0, 1439}};
  for (const auto& [point, day, minute] : cases) {
    const auto hit = layout.grid().hit(point);
    ASSERT_TRUE(hit) << minute;
    EXPECT_EQ(hit->column, day) << minute;
    EXPECT_EQ(hit->minute, minute);
  }
  for (const Point outside : {Point{47.9, 100.0}, {48.0, 11.9}, {748.0, 50.0}, {50.0, 582.0}})
    EXPECT_FALSE(layout.grid().hit(outside)) << outside.x << " " << outside.y;
}

TEST(WeeklyLayout, scrollsAMinuteToAQuarterOfTheHeight) {
  const WeeklyLayout layout(inputOf(760.0, 1734.0, VerticalFit::scroll));
  EXPECT_DOUBLE_EQ(layout.grid().scrollOffset(300, 600.0), 0.0);
  EXPECT_DOUBLE_EQ(layout.grid().scrollOffset(720, 600.0), 420 * 1.5 + 24.0 - 150.0);
  EXPECT_DOUBLE_EQ(layout.grid().scrollOffset(1440, 600.0), 1140 * 1.5 + 24.0 - 600.0);
  EXPECT_DOUBLE_EQ(layout.grid().scrollOffset(720, 4000.0), 0.0);
}

constexpr PackedDate kWednesday = packedDate(2026, 3, 18);

DailyLayout layoutOf(Size frame, std::int64_t venues, ItemTextWidths widest = {},
                     Medium medium = Medium::screen) {
  return DailyLayout({{frame, VerticalFit::fit, medium}, kWednesday, venues, widest});
}

TEST(DailyLayout, columnsFollowTheWidthAndGiveUpPartsFromTheRight) {
  // Width, venues, medium and the widest times and durations; label column, column, the rooms of the parts.
  struct Case {
    double width;
    std::int64_t venues;
    Medium medium;
    ItemTextWidths widest;
    double labels, column, times, duration;
  };
  const Case cases[] = {{549.0, 1, Medium::screen, {}, 35.0, 490.0, 50.0, 40.0},
                        {548.9, 1, Medium::screen, {}, 30.0, 494.9, 50.0, 40.0},
                        {542.0, 1, Medium::page, {}, 35.0, 490.0, 50.0, 40.0},
                        {541.9, 1, Medium::page, {}, 30.0, 494.9, 50.0, 40.0},
                        {900.0, 4, Medium::screen, {60.0, 20.0}, 35.0, 841.0 / 4, 0.0, 0.0},
                        {1119.0, 4, Medium::screen, {58.0, 20.0}, 35.0, 265.0, 90.0, 0.0},
                        {1118.0, 4, Medium::screen, {58.0, 20.0}, 35.0, 264.75, 0.0, 0.0},
                        {1327.0, 4, Medium::screen, {58.0, 20.0}, 35.0, 317.0, 90.0, 52.0},
                        {1326.0, 4, Medium::screen, {58.0, 20.0}, 35.0, 316.75, 90.0, 0.0},
                        {1327.0, 4, Medium::screen, {18.0, 8.0}, 35.0, 317.0, 50.0, 40.0},
                        {900.0, 8, Medium::screen, {60.0, 20.0}, 35.0, 841.0 / 8, 0.0, 0.0},
                        {900.0, 0, Medium::screen, {}, 35.0, 0.0, 0.0, 0.0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.width);
    const DailyLayout layout = layoutOf({c.width, 600.0}, c.venues, c.widest, c.medium);
    EXPECT_DOUBLE_EQ(layout.labelColumnWidth(), c.labels);
    EXPECT_DOUBLE_EQ(layout.columnWidth(), c.column);
    EXPECT_DOUBLE_EQ(layout.timeColWidth(), c.times);
    EXPECT_DOUBLE_EQ(layout.durationColWidth(), c.duration);
    const DailyDetail detail = c.duration > 0.0 ? DailyDetail::timesNameAndDuration
                               : c.times > 0.0  ? DailyDetail::timesAndName
                                                : DailyDetail::name;
    EXPECT_EQ(layout.detail(), detail);
    EXPECT_TRUE(std::isfinite(layout.grid().columnX(0)));
  }
}

TEST(DailyLayout, partsShareAnItemsWidth) {
  const Rect block{100.0, 50.0, 317.0, 30.0};
  const DailyLayout wide = layoutOf({1327.0, 600.0}, 4, {58.0, 20.0});
  EXPECT_EQ(wide.durationRect(block), (Rect{349.0, 50.0, 52.0, 30.0}));
  EXPECT_EQ(wide.nameRect(block), (Rect{206.0, 50.0, 159.0, 30.0}));
  EXPECT_EQ(layoutOf({1119.0, 600.0}, 4, {58.0, 20.0}).nameRect(block), (Rect{206.0, 50.0, 211.0, 30.0}));
  EXPECT_EQ(layoutOf({900.0, 600.0}, 8).nameRect(block), (Rect{104.0, 50.0, 309.0, 30.0}));
}

TEST(DailyLayout, axisFitsTheHeightOrScrolls) {
  const std::tuple<double, VerticalFit, double, std::int64_t, double> cases[] = {
      {1737.0, VerticalFit::fit, 1.5, 15, 1737.0},
      {882.0, VerticalFit::fit, 0.75, 30, 882.0},
      {597.0, VerticalFit::fit, 0.5, 60, 597.0},
      {20.0, VerticalFit::fit, 0.0, 60, 20.0},
      {600.0, VerticalFit::scroll, 1.5, 15, 1737.0}};
  for (const auto& [height, fit, pointsPerMinute, step, wantedHeight] : cases) {
    SCOPED_TRACE(height);
    const DailyLayout layout({{{900.0, height}, fit}, kWednesday, 2, {}});
    EXPECT_DOUBLE_EQ(layout.pointsPerMinute(), pointsPerMinute);
    EXPECT_EQ(layout.labelStep(), step);
    EXPECT_DOUBLE_EQ(DailyLayout::heightForAvailableHeight(height, {{900.0, height}, fit}), wantedHeight);
  }
  EXPECT_EQ(layoutOf({900.0, 597.0}, 2).ticks().front(), (AxisTick{300, 15.0, "5:00"}));
  const DailyLayout scrolling({{{900.0, 1737.0}, VerticalFit::scroll}, kWednesday, 2, {}});
  EXPECT_DOUBLE_EQ(scrolling.grid().scrollOffset(720, 600.0), 420 * 1.5 + 27.0 - 150.0);
}

TEST(DailyLayout, placesItemsMarkerAndHits) {
  const DailyLayout layout = layoutOf({859.0, 597.0}, 4);  // columns of 200 from x 47 on
  const DailyColumns columns = {
      {item(3, 600, 60)}, {}, {item(3, 600, 60), item(3, 630, -5), item(3, 630, 0)}, {}};
  const auto placed = layout.itemsMeeting(columns, {0.0, 0.0, 859.0, 597.0});
  ASSERT_EQ(placed.size(), 2U);
  EXPECT_EQ(placed[0].rect, (Rect{47.0, 165.0, 200.0, 30.0}));
  EXPECT_EQ(placed[1].rect.x, 447.0);
  EXPECT_EQ(layout.itemsMeeting(columns, {460.0, 170.0, 5.0, 5.0}).size(), 1U);
  EXPECT_TRUE(layout.itemsMeeting(columns, {660.0, 170.0, 5.0, 5.0}).empty());

  const Rect marker{34.0, 156.0, 826.0, 18.0};
  EXPECT_EQ(layout.timeMarkerRect(kWednesday, 600), marker);
  EXPECT_FALSE(layout.timeMarkerRect(kWednesday, 299) || layout.timeMarkerRect(kWednesday, 1441) ||
               layout.timeMarkerRect(nextDay(kWednesday), 600));
  EXPECT_FALSE(layoutOf({859.0, 597.0}, 4, {}, Medium::page).timeMarkerRect(kWednesday, 600));
  EXPECT_FALSE(layout.pastRect(kWednesday));
  EXPECT_EQ(layout.pastRect(nextDay(kWednesday)), (Rect{47.0, 0.0, 800.0, 597.0}));

  EXPECT_FALSE(layoutOf({859.0, 597.0}, 0).grid().hit({100.0, 100.0}));
}

}  // namespace
}  // namespace tarvel
