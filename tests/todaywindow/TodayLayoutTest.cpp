#include "todaywindow/TodayLayout.h"

#include <gtest/gtest.h>

#include "schedule/Items.h"
#include "todaywindow/TodayWindowLayout.h"

namespace tarvel {
namespace {

using test::item;

ScheduleItems itemsAt(const std::vector<std::pair<std::int64_t, std::int64_t>>& spans) {
  ScheduleItems items;
  for (const auto& [from, to] : spans) items.push_back(item(3, from, to - from));
  return items;
}

TEST(TodayLayout, RangeHoldsAllItemsOnHalfHours) {
  constexpr DayRange kView = TodayLayout::kLeastRange;
  constexpr DayRange kWindow{300, 1440};
  const std::tuple<std::vector<std::pair<std::int64_t, std::int64_t>>, DayRange, DayRange> cases[] = {
      {{}, kView, {480, 1200}},
      {{{370, 1340}}, kView, {360, 1350}},
      {{{540, 600}, {1155, 1215}}, kView, {480, 1230}},
      {{{480, 1200}}, kView, {480, 1200}},
      {{{-10, 5}}, kView, {-30, 1200}},
      {{{1410, 1530}}, kWindow, {300, 1530}},
      {{{299, 400}}, kWindow, {270, 1440}},
  };
  for (const auto& [sessions, floor, range] : cases)
    EXPECT_EQ(todayRange(itemsAt(sessions), floor), range) << range.startOfDay << ".." << range.endOfDay;
}

struct Shape {
  Size frame;
  VerticalFit fit;
  double factor;
  ItemTextWidths widest;
  double pointsPerMinute, viewHeight, timeCol, durationCol, descrCol;
  std::int64_t step;
};

TEST(TodayLayout, ColumnsAndHeightFollowTheFrame) {
  const Shape cases[] = {
      {{1000, 747}, VerticalFit::fit, 1.0, {}, 1.0, 747, 80, 50, 795, 30},
      {{1000, 1107}, VerticalFit::fit, 1.0, {100, 40}, 1.5, 1107, 116, 56, 753, 15},
      {{1000, 400}, VerticalFit::fit, 1.0, {64, 34}, 373.0 / 720, 400, 80, 50, 795, 60},
      {{1000, 500}, VerticalFit::scroll, 2.0, {}, 2.0, 1467, 80, 50, 795, 15},
      {{1000, 2000}, VerticalFit::scroll, 1.0, {}, 1.0, 2000, 80, 50, 795, 30},
      {{150, 10}, VerticalFit::fit, 1.0, {}, 0.0, 10, 80, 50, 0, 60},
  };
  for (const Shape& c : cases) {
    const TodayLayout layout({c.frame, c.fit, c.factor, Medium::screen, TodayLayout::kLeastRange, c.widest});
    EXPECT_DOUBLE_EQ(layout.pointsPerMinute(), c.pointsPerMinute);
    EXPECT_EQ(layout.viewHeight(), c.viewHeight);
    EXPECT_EQ(layout.timeColWidth(), c.timeCol);
    EXPECT_EQ(layout.durationColWidth(), c.durationCol);
    EXPECT_EQ(layout.descrColWidth(), c.descrCol);
    EXPECT_EQ(layout.labelStep(), c.step);
  }
}

TEST(TodayLayout, PlacesBarsTextsAndMarker) {
  const TodayLayout layout(
      {{1000, 747}, VerticalFit::fit, 1.0, Medium::screen, TodayLayout::kLeastRange, {}});
  const auto session = item(3, 600, 60);
  const Rect bar = layout.barRect(*session);
  EXPECT_EQ(bar, (Rect{45, 135, 925, 60}));
  EXPECT_EQ(layout.timesRect(bar), (Rect{53, 135, 64, 60}));
  EXPECT_EQ(layout.descriptionRect(bar), (Rect{139, 135, 767, 60}));
  EXPECT_EQ(layout.durationRect(bar), (Rect{928, 135, 34, 60}));
  EXPECT_EQ(layout.columnLines(), (std::array<double, 4>{45, 125, 920, 970}));
  EXPECT_EQ(layout.noteRect(bar, 705), (Rect{856, 135, 50, 60}));
  EXPECT_EQ(layout.noteRect(bar, 706), std::nullopt) << "less than 50 is a corner mark";
  EXPECT_EQ(layout.timeMarkerRect(480), (Rect{25, 0, 965, 30}));
  EXPECT_EQ(layout.timeMarkerRect(1200), (Rect{25, 720, 965, 30}));
  EXPECT_EQ(layout.timeMarkerRect(180), std::nullopt);
  EXPECT_EQ(layout.timeMarkerRect(1201), std::nullopt);
  EXPECT_EQ(layout.itemsMeeting({session, item(3, 700, 0), item(3, 660, 30)}, {0, 100, 10, 50}).size(), 0U);
  EXPECT_EQ(layout.itemsMeeting({session, item(3, 700, 0), item(3, 660, 30)}, {50, 100, 10, 200}).size(), 2U);
}

TEST(TodayLayout, ScrollsAFifthDownWithinTheView) {
  const TodayLayout layout(
      {{1000, 500}, VerticalFit::scroll, 2.0, Medium::screen, TodayLayout::kLeastRange, {}});
  const std::pair<std::int64_t, double> cases[] = {
      {600, 240 + 15 - 100}, {180, 0}, {500, 0}, {1100, 967}, {1500, 967}};
  for (const auto& [time, offset] : cases) EXPECT_EQ(layout.scrollOffset(time, 500), offset) << time;
  EXPECT_EQ(layout.scrollOffset(1100, 2000), 0.0) << "all of it is visible";
}

TEST(TodayLayout, OfOverlappingSessionsTheLaterInTheListIsOn) {
  const ScheduleItems items = itemsAt({{600, 700}, {650, 720}, {710, 720}});
  const std::pair<std::int64_t, int> cases[] = {{599, -1}, {600, 0}, {649, 0}, {650, 1}, {719, 2}, {720, -1}};
  for (const auto& [minute, index] : cases)
    EXPECT_EQ(todayItemAt(items, minute), index < 0 ? nullptr : items[std::size_t(index)].get()) << minute;
}

/// What the window's band holds must neither overlap nor leave the window, however small or large it is.
TEST(TodayWindowLayout, PartsStandApartInTheBand) {
  for (const Size window : {Size{620, 420}, {1280, 720}, {1080, 1920}, {3840, 2160}, {7680, 1000}}) {
    for (const Size logo : {Size{}, {40, 60}, {600, 600}, {4000, 300}}) {
      const auto layout = TodayWindowLayout::of({window, logo, true});
      EXPECT_LE(layout.logo.width, logo.width) << "a logo stands at the margin, without room around it";
      double right = TodayLayout::kBarX;
      for (const Rect& part : {layout.logo, layout.info, layout.time, layout.refreshButton, layout.gearButton,
                               layout.closeButton}) {
        if (part == Rect{}) continue;
        EXPECT_GE(part.x, right);
        EXPECT_GT(part.width, 20.0) << window.width;
        EXPECT_GE(part.y, 0.0);
        EXPECT_LE(part.maxY(), layout.bandHeight);
        right = part.maxX();
      }
      EXPECT_EQ(right, window.width - TodayLayout::kRightMargin) << "flush with the bars";
      EXPECT_LE(layout.date.maxY(), layout.bandHeight);
      EXPECT_EQ(layout.schedule.maxY(), window.height);
    }
  }
}

}  // namespace
}  // namespace tarvel
