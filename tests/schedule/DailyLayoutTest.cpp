#include "schedule/DailyLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "Items.h"

namespace tarvel {
namespace {

using test::item;

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
  EXPECT_DOUBLE_EQ(scrolling.grid().scrollOffset(1440, 600.0), 1140 * 1.5 + 27.0 - 600.0);
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

  const std::tuple<Point, std::int64_t, std::int64_t> hits[] = {
      {{47.0, 15.0}, 0, 300}, {{846.9, 15.9}, 3, 301}, {{247.0, 584.9}, 1, 1439}};
  for (const auto& [point, column, minute] : hits) {
    const auto hit = layout.grid().hit(point);
    ASSERT_TRUE(hit) << minute;
    EXPECT_EQ(hit->column, column);
    EXPECT_EQ(hit->minute, minute);
  }
  for (const Point outside : {Point{46.9, 100.0}, {47.0, 14.9}, {847.0, 50.0}, {50.0, 585.0}})
    EXPECT_FALSE(layout.grid().hit(outside)) << outside.x << " " << outside.y;
  EXPECT_FALSE(layoutOf({859.0, 597.0}, 0).grid().hit({100.0, 100.0}));
}

}  // namespace
}  // namespace tarvel
