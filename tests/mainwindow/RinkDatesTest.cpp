#include "mainwindow/RinkDates.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

constexpr PackedDate kFirst = packedDate(2026, 3, 1);
constexpr PackedDate kLast = packedDate(2026, 3, 29);

TEST(WeekRange, clampsDates) {
  struct Case {
    WeekRange range;
    PackedDate date;
    PackedDate clamped;
  };
  const Case cases[] = {
      {{kFirst, kLast}, packedDate(2026, 2, 28), kFirst},
      {{kFirst, kLast}, packedDate(2026, 3, 12), packedDate(2026, 3, 12)},
      {{kFirst, kLast}, packedDate(2026, 4, 4), packedDate(2026, 4, 4)},  // the Saturday of the last week
      {{kFirst, kLast}, packedDate(2026, 4, 5), packedDate(2026, 4, 4)},
      {{kFirst, kNoDate}, packedDate(2026, 2, 28), kFirst},
      {{kFirst, kNoDate}, packedDate(2026, 3, 12), kNoDate},
      {{kNoDate, kNoDate}, packedDate(2026, 3, 12), kNoDate},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(shortDateText(c.date));
    EXPECT_EQ(c.range.clamped(c.date), c.clamped);
  }
}

TEST(ScheduleMoment, theNightBelongsToTheDayBeforeWhileTheAxisReaches) {
  const PackedDate today = packedDate(2026, 3, 1);
  const PackedDate before = packedDate(2026, 2, 28);
  struct Case {
    std::int64_t time;
    std::int64_t endOfDay;
    ScheduleMoment moment;
  };
  const Case cases[] = {
      {90, 1440, {today, 90}},   {90, 1530, {before, 1530}},  {91, 1530, {today, 91}},
      {0, 1440, {before, 1440}}, {299, 1800, {before, 1739}}, {300, 1800, {today, 300}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.time << " " << c.endOfDay);
    EXPECT_EQ(scheduleMoment(today, c.time, 300, c.endOfDay), c.moment);
  }
}

}  // namespace
}  // namespace tarvel
