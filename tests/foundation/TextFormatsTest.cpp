#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <tuple>

#include "foundation/CalendarDates.h"
#include "foundation/TextFormats.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel {
namespace {

TEST(TextFormats, TimesOfDay) {
  const std::tuple<std::int64_t, const char*, const char*> cases[] = {
      {0, "12:00", "12:00 am"},    {719, "11:59", "11:59 am"},  {720, "12:00", "12:00 pm"},
      {1439, "11:59", "11:59 pm"}, {1440, "12:00", "12:00 am"}, {1505, "1:05", "1:05 am"}};
  for (const auto& [minutes, clock, time] : cases) {
    EXPECT_EQ(clockText(minutes), clock);
    EXPECT_EQ(timeText(minutes), time);
  }
}

TEST(TextFormats, Durations) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0 min"}, {59, "59 min"}, {60, "1 hr"}, {121, "2 hr 1 min"}};
  for (const auto& [minutes, text] : cases) EXPECT_EQ(durationText(minutes), text);
}

TEST(TextFormats, GroupedNumbers) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0"},       {999, "999"},          {1000, "1,000"},
      {-999, "-999"}, {-123456, "-123,456"}, {INT64_MIN, "-9,223,372,036,854,775,808"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(groupedNumber(number), text);
}

TEST(TextFormats, DatesAndTimes) {
  const TimeZone denver = *TimeZone::named("America/Denver");
  const std::pair<double, const char*> cases[] = {{0.0, "12/31/2000 5:00:00 pm"},
                                                  {7 * 3600.0, "1/1/2001 12:00:00 am"},
                                                  {19 * 3600 + 61.9, "1/1/2001 12:01:01 pm"},
                                                  {763'775'999.0, "3/15/2025 5:59:59 pm"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(dateAndTimeText(Instant{seconds}, denver), text);
  EXPECT_EQ(dateAndTimeText(std::nullopt, denver), "?");
}

TEST(TextFormats, Intervals) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0:00.0"},          {2.0, "0:02.0"},      {125.5, "2:05.5"},       {125.44, "2:05.4"},
      {59.96, "1:00.0"},        {3599.94, "59:59.9"}, {3599.96, "1:00:00.0"},  {3725.5, "1:02:05.5"},
      {172800.0, "48:00:00.0"}, {-5.0, "0:00.0"},     {std::nan(""), "0:00.0"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(intervalText(seconds), text) << seconds;
}

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
