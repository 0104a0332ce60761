#include <gtest/gtest.h>

#include <tuple>

#include "Items.h"
#include "schedule/ItemInfoText.h"
#include "schedule/ScheduleHeaderView.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

using test::item;
using test::kWeekOf;
using Kind = ScheduleSpot::Kind;

TEST(DayRange, widensToWholeHoursAndHalfHours) {
  const std::tuple<std::int64_t, std::int64_t, DayRange> cases[] = {{600, 60, {300, 1440}},
                                                                    {295, 60, {240, 1440}},
                                                                    {1380, 61, {300, 1470}},
                                                                    {1455, 60, {300, 1530}},
                                                                    {-10, 20, {-60, 1440}}};
  for (const auto& [time, duration, range] : cases)
    EXPECT_EQ(dayRangeOf({item(2, time, duration)}), range) << time;
  EXPECT_EQ(dayRangeOf({}), (DayRange{300, 1440}));
}

TEST(ScheduleSpot, findsItemsAndTheGapsBetweenThem) {
  const ScheduleItems items = {item(1, 360, 60), item(2, 400, 30), item(1, 450, 60), item(1, 480, 60),
                               item(1, 700, 0)};
  const auto none = items.size();
  // The day and minute, and the item or gap there: before the first, at both ends, overlapping, after the
  // last.
  const std::tuple<int, int, Kind, std::size_t, int, int> cases[] = {
      {1, 359, Kind::nothing, none, 0, 0}, {1, 360, Kind::item, 0, 0, 0},
      {1, 419, Kind::item, 0, 0, 0},       {1, 420, Kind::gap, none, 420, 450},
      {1, 490, Kind::item, 2, 0, 0},       {1, 520, Kind::item, 3, 0, 0},
      {1, 600, Kind::gap, none, 540, 700}, {1, 700, Kind::nothing, none, 0, 0},
      {3, 410, Kind::nothing, none, 0, 0}};
  for (const auto& [day, minute, kind, index, gapStart, gapEnd] : cases) {
    SCOPED_TRACE(minute);
    const ScheduleSpot spot = findSpot(items, day, minute);
    EXPECT_EQ(spot.kind, kind);
    EXPECT_EQ(spot.item, index == none ? nullptr : items[index]);
    EXPECT_EQ(spot.gapStart, gapStart);
    EXPECT_EQ(spot.gapEnd, gapEnd);
  }
}

TEST(ItemInfoText, tellsOfItemsAfterMidnightAndOfGaps) {
  EXPECT_EQ(itemInfoText(*item(5, 1455, 45, SessionKind::rental, "Staff"), packedDate(2026, 3, 20), "Rental"),
            "Saturday\n3/21/26\n12:15 am - 1:00 am\n(45 min)\n\nRental\nStaff");
  EXPECT_EQ(itemInfoText(*item(0, 720, 120, SessionKind::other, "Gala"), packedDate(2105, 3, 15), ""),
            "Sunday\n3/15/2105\n12:00 pm - 2:00 pm\n(2 hr)\n\nGala");
  const ScheduleSpot gap = findSpot({item(0, 360, 60), item(0, 500, 60)}, 0, 430);
  EXPECT_EQ(gapInfoText(gap, kWeekOf, "-- Idle --"),
            "Sunday\n3/15/26\n7:00 am - 8:20 am\n(1 hr 20 min)\n\n-- Idle --");
}

TEST(ScheduleHeaderView, namesTheDays) {
  EXPECT_EQ(ScheduleHeaderView::columnTitle(packedDate(2026, 12, 31), kWeekOf), "Thu 12/31");
  EXPECT_EQ(ScheduleHeaderView::columnTitle(kWeekOf, kWeekOf), "Today");
}

}  // namespace
}  // namespace tarvel
