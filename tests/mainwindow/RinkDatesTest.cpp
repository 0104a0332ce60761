#include "mainwindow/RinkDates.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tarvel {
namespace {

constexpr PackedDate kFirst = packedDate(2026, 3, 1);
constexpr PackedDate kLast = packedDate(2026, 3, 29);

TEST(WeekRange, clampsDates) {
  const std::tuple<WeekRange, PackedDate, PackedDate> cases[] = {
      {{kFirst, kLast}, packedDate(2026, 2, 28), kFirst},
      {{kFirst, kLast}, packedDate(2026, 4, 4), packedDate(2026, 4, 4)},  // the Saturday of the last week
      {{kFirst, kLast}, packedDate(2026, 4, 5), packedDate(2026, 4, 4)},
      {{kFirst, kNoDate}, packedDate(2026, 3, 12), kNoDate}};
  for (const auto& [range, date, clamped] : cases)
    EXPECT_EQ(range.clamped(date), clamped) << shortDateText(date);
}

TEST(ScheduleMoment, theNightBelongsToTheDayBeforeWhileTheAxisReaches) {
  const PackedDate today = packedDate(2026, 3, 1), before = packedDate(2026, 2, 28);
  const std::tuple<std::int64_t, std::int64_t, ScheduleMoment> cases[] = {
      {90, 1440, {today, 90}},   {90, 1530, {before, 1530}},  {91, 1530, {today, 91}},
      {0, 1440, {before, 1440}}, {299, 1800, {before, 1739}}, {300, 1800, {today, 300}}};
  for (const auto& [time, endOfDay, moment] : cases)
    EXPECT_EQ(scheduleMoment(today, time, 300, endOfDay), moment) << time << " " << endOfDay;
}

}  // namespace
}  // namespace tarvel
