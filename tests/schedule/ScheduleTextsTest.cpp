#include <gtest/gtest.h>

#include "Items.h"
#include "schedule/ItemInfoText.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

using test::item;
using test::kWeekOf;
using Kind = ScheduleSpot::Kind;

TEST(DayRange, widensToWholeHoursAndHalfHours) {
  struct Case {
    std::int64_t time;
    std::int64_t duration;
    DayRange range;
  };
  const Case cases[] = {
      {600, 60, {300, 1440}},  {295, 60, {240, 1440}},  {0, 60, {0, 1440}},     {1380, 90, {300, 1470}},
      {1380, 61, {300, 1470}}, {1455, 60, {300, 1530}}, {-10, 20, {-60, 1440}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.time << " " << c.duration);
    EXPECT_EQ(dayRangeOf({item(2, c.time, c.duration)}), c.range);
  }
  EXPECT_EQ(dayRangeOf({}), (DayRange{300, 1440}));
}

TEST(ScheduleSpot, findsItemsAndTheGapsBetweenThem) {
  const ScheduleItems items = {item(1, 360, 60), item(2, 400, 30), item(1, 450, 60), item(1, 480, 60),
                               item(1, 700, 0)};
  struct Case {
    std::int64_t day;
    std::int64_t minute;
    Kind kind;
    int itemIndex;
    std::int64_t gapStart;
    std::int64_t gapEnd;
  };
  const Case cases[] = {
      {1, 359, Kind::nothing, -1, 0, 0},  // before a day's first item
      {1, 360, Kind::item, 0, 0, 0},     {1, 419, Kind::item, 0, 0, 0},
      {1, 420, Kind::gap, -1, 420, 450}, {1, 449, Kind::gap, -1, 420, 450},
      {1, 490, Kind::item, 2, 0, 0},  // the first of two that overlap
      {1, 520, Kind::item, 3, 0, 0},     {1, 600, Kind::gap, -1, 540, 700},
      {1, 700, Kind::nothing, -1, 0, 0},  // after the last
      {2, 410, Kind::item, 1, 0, 0},     {3, 410, Kind::nothing, -1, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.day << " " << c.minute);
    const ScheduleSpot spot = findSpot(items, c.day, c.minute);
    EXPECT_EQ(spot.kind, c.kind);
    EXPECT_EQ(spot.item, c.itemIndex < 0 ? nullptr : items[static_cast<std::size_t>(c.itemIndex)]);
    EXPECT_EQ(spot.gapStart, c.gapStart);
    EXPECT_EQ(spot.gapEnd, c.gapEnd);
  }
}

TEST(ItemInfoText, tellsTheRealDayOfAnItemAfterMidnight) {
  EXPECT_EQ(itemInfoText(*item(5, 1455, 45, SessionKind::rental, "Staff"), kWeekOf, "Rental"),
            "Saturday\n3/21/26\n12:15 am - 1:00 am\n(45 min)\n\nRental\nStaff");
  EXPECT_EQ(itemInfoText(*item(5, 1380, 90), kWeekOf, "Public"),
            "Friday\n3/20/26\n11:00 pm - 12:30 am\n(1 hr 30 min)\n\nPublic");
  EXPECT_EQ(itemInfoText(*item(0, 720, 120, SessionKind::other, "Gala"), packedDate(2105, 3, 15), ""),
            "Sunday\n3/15/2105\n12:00 pm - 2:00 pm\n(2 hr)\n\nGala");
}

TEST(ItemInfoText, tellsOfAGapOnTheDayOfTheColumn) {
  const ScheduleSpot gap = findSpot({item(0, 360, 60), item(0, 500, 60)}, 0, 430);
  EXPECT_EQ(gapInfoText(gap, kWeekOf), "Sunday\n3/15/26\n7:00 am - 8:20 am\n(1 hr 20 min)\n\n-- Idle --");
}

}  // namespace
}  // namespace tarvel
