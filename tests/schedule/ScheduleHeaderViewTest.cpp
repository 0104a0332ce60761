#include "schedule/ScheduleHeaderView.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

TEST(ScheduleHeaderView, namesTheDays) {
  const PackedDate today = packedDate(2026, 3, 18);
  EXPECT_EQ(ScheduleHeaderView::columnTitle(packedDate(2026, 3, 15), today), "Sun 3/15");
  EXPECT_EQ(ScheduleHeaderView::columnTitle(today, today), "Today");
  EXPECT_EQ(ScheduleHeaderView::columnTitle(packedDate(2026, 12, 31), today), "Thu 12/31");
  EXPECT_EQ(ScheduleHeaderView::columnTitle(nextDay(packedDate(2026, 12, 31)), kNoDate), "Fri 1/1");
}

}  // namespace
}  // namespace tarvel
