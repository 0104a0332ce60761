#include "foundation/CalendarDates.h"

#include <gtest/gtest.h>

#include <chrono>

#include "simulation/ports/SimWorld.h"

namespace tarvel {
namespace {

constexpr PackedDate d(int year, int month, int day) {
  return packedDate(year, month, day);
}

PackedDate packedOf(std::chrono::sys_days days) {
  const std::chrono::year_month_day ymd(days);
  return d(static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
           static_cast<int>(static_cast<unsigned>(ymd.day())));
}

TEST(CalendarDates, EveryDayOf150YearsAgreesWithTheCalendar) {
  using std::chrono::days;
  using std::chrono::sys_days;
  const sys_days fixed = std::chrono::year{2024} / 2 / 29;
  for (sys_days day = std::chrono::year{2000} / 1 / 1; day < sys_days(std::chrono::year{2150} / 1 / 1);
       day += days{1}) {
    const PackedDate date = packedOf(day);
    const auto weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    ASSERT_EQ(weekdayOf(date), weekday) << std::hex << date;
    ASSERT_EQ(nextDay(date), packedOf(day + days{1}));
    ASSERT_EQ(previousDay(date), packedOf(day - days{1}));
    ASSERT_EQ(startOfWeek(date), packedOf(day - days{weekday}));
    ASSERT_EQ(endOfWeek(date), packedOf(day + days{6 - weekday}));
    const auto apart = (day - fixed).count();
    ASSERT_EQ(apart < 0 ? subtractDays(d(2024, 2, 29), -apart) : addDays(d(2024, 2, 29), apart), date);
    const auto month = std::chrono::year_month_day(day).year() / std::chrono::year_month_day(day).month();
    ASSERT_EQ(firstOfNextMonth(date), packedOf(sys_days(month / std::chrono::last) + days{1}));
    ASSERT_EQ(firstOfPreviousMonth(date), packedOf(sys_days((month - std::chrono::months{1}) / 1)));
  }
}

TEST(CalendarDates, TodayGoesByPretendTimeAndTheMachinesZone) {
  SimWorld world;  // begins on 2026-03-08 at 12:00 UTC
  PretendTime time(world.clock());
  EXPECT_EQ(todayDate(time), d(2026, 3, 8));
  time.setOffset(12 * 3600 - 0.5);
  EXPECT_EQ(todayDate(time), d(2026, 3, 8));
  time.setOffset(12 * 3600);
  EXPECT_EQ(todayDate(time), d(2026, 3, 9));
  world.setMachineZone(*TimeZone::named("America/Denver"));
  EXPECT_EQ(todayDate(time), d(2026, 3, 8));
}

TEST(CalendarDates, NoDateStaysNoDate) {
  for (const auto& change :
       {nextDay, previousDay, firstOfPreviousMonth, firstOfNextMonth, startOfWeek, endOfWeek}) {
    EXPECT_EQ(change(kNoDate), kNoDate);
  }
  for (const auto& change : {addDays, subtractDays, addMonths}) EXPECT_EQ(change(kNoDate, 40), kNoDate);
  for (const auto& text : {shortDateText, longDateText, fullDateText}) EXPECT_EQ(text(kNoDate), "");
}

TEST(CalendarDates, AddMonths) {
  const std::tuple<PackedDate, std::int64_t, PackedDate> cases[] = {
      {d(2024, 1, 31), 0, d(2024, 1, 31)},    {d(2024, 1, 31), 1, d(2024, 2, 29)},
      {d(2024, 12, 31), 1, d(2025, 1, 31)},   {d(2024, 2, 29), 12, d(2025, 2, 28)},
      {d(2024, 10, 31), 13, d(2025, 11, 30)}, {d(2024, 5, 15), 1207, d(2124, 12, 15)}};
  for (const auto& [date, n, result] : cases) EXPECT_EQ(addMonths(date, n), result) << std::hex << date;
}

TEST(CalendarDates, Texts) {
  EXPECT_EQ(shortDateText(d(2025, 3, 2)), "3/2/25");
  EXPECT_EQ(shortDateText(d(2999, 1, 1)), "1/1/999");
  EXPECT_EQ(shortDateText(d(1999, 12, 31)), "12/31/1999");
  EXPECT_EQ(longDateText(d(2025, 3, 2)), "March 2, 2025");
  EXPECT_EQ(fullDateText(d(2025, 3, 2)), "Sunday, March 2, 2025");
}

// A date from a file may hold any bits. The year is one that begins on a Sunday.
TEST(CalendarDates, SenselessDatesStayWithinTheTables) {
  for (int month = 0; month < 256; ++month) {
    for (const int day : {0, 1, 31, 255}) {
      const PackedDate date = d(2034, month, day);
      EXPECT_GE(weekdayOf(date), 0);
      EXPECT_LE(weekdayOf(date), 6);
      EXPECT_GE(daysInMonth(2034, month), 28);
      const PackedDate later = addDays(date, 1000);
      EXPECT_TRUE(dayOf(later) <= daysInMonth(yearOf(later), monthOf(later)));
      EXPECT_FALSE(fullDateText(date).empty());
    }
  }
  const PackedDate last = d(65535, 12, 31);
  for (const PackedDate date : {last, PackedDate{0xFFFFFFFF}}) {
    for (const PackedDate beyond : {nextDay(date), addMonths(date, 1)}) EXPECT_EQ(beyond, last);
    EXPECT_EQ(firstOfNextMonth(date), last);
  }
  EXPECT_EQ(monthName(13), "");
  EXPECT_EQ(weekdayName(7), "");
}

TEST(CalendarDatesDeathTest, WeekdayBeforeTheYear2000) {
  EXPECT_DEATH(weekdayOf(d(1999, 12, 31)), "Fatal error");
}

}  // namespace
}  // namespace tarvel
