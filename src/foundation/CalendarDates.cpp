#include "foundation/CalendarDates.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "platform/FatalError.h"

namespace tarvel {
namespace {

constexpr int kMonthsPerYear = 12;
constexpr int kDaysPerWeek = 7;
constexpr int kFirstYear = 2000;
constexpr int kFirstYearsWeekday = 6;  // a Saturday
constexpr int kYearsAhead = 8;
constexpr int kLastShortYear = 2999;
constexpr int kLastYear = 0xFFFF;

using MonthTable = std::array<int, kMonthsPerYear>;
constexpr MonthTable kDaysInMonth{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr MonthTable kFirstDayOfMonth{1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
constexpr MonthTable kFirstDayOfMonthLeap{1, 32, 61, 92, 122, 153, 183, 214, 245, 275, 306, 336};

constexpr std::array<std::string_view, kDaysPerWeek> kWeekdayNames{
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, kMonthsPerYear> kMonthNames{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

bool isLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

/// Dates come from files too, so a month that is none must not lead outside the tables.
std::size_t monthIndex(int month) {
  return static_cast<std::size_t>(std::clamp(month, 1, kMonthsPerYear) - 1);
}

/// The weekday of January 1 of each year from `kFirstYear` on, as far as it was asked for.
std::vector<std::uint8_t>& yearStarts() {
  static std::vector<std::uint8_t> weekdays{kFirstYearsWeekday};
  return weekdays;
}

int weekdayOfYearStart(int year) {
  if (year < kFirstYear) fatalError("a year before 2000");
  const auto index = static_cast<std::size_t>(year - kFirstYear);
  if (index >= yearStarts().size()) prepareWeekdays(year);
  return yearStarts()[index];
}

/// The calendar ends with the last day that a packed date holds: a date of a damaged file must not come round
/// to a year before all others.
PackedDate packedUpToTheLast(int year, int month, int day) {
  return year > kLastYear ? packedDate(kLastYear, kMonthsPerYear, 31) : packedDate(year, month, day);
}

}  // namespace

PackedDate packedDate(const LocalTime& time) {
  return packedDate(time.year, time.month, time.day);
}

PackedDate todayDate(const PretendTime& time) {
  return packedDate(time.machineZone().local(time.now()));
}

int daysInMonth(int year, int month) {
  const std::size_t index = monthIndex(month);
  return kDaysInMonth[index] + (index == 1 && isLeapYear(year) ? 1 : 0);
}

void prepareWeekdays(int year) {
  std::vector<std::uint8_t>& weekdays = yearStarts();
  for (int next = kFirstYear + static_cast<int>(weekdays.size()); next <= year + kYearsAhead; ++next) {
    const int daysOfYearBefore = isLeapYear(next - 1) ? 366 : 365;
    weekdays.push_back(static_cast<std::uint8_t>((weekdays.back() + daysOfYearBefore) % kDaysPerWeek));
  }
}

int weekdayOf(PackedDate date) {
  if (date == kNoDate) return 0;
  const int year = yearOf(date);
  const MonthTable& firstDays = isLeapYear(year) ? kFirstDayOfMonthLeap : kFirstDayOfMonth;
  const int dayOfYear = firstDays[monthIndex(monthOf(date))] + dayOf(date) - 1;
  // A week is added because a file's day 0 lies before the year's start.
  return (weekdayOfYearStart(year) + dayOfYear - 1 + kDaysPerWeek) % kDaysPerWeek;
}

PackedDate nextDay(PackedDate date) {
  return addDays(date, 1);
}

PackedDate previousDay(PackedDate date) {
  return subtractDays(date, 1);
}

PackedDate addDays(PackedDate date, std::int64_t n) {
  if (date == kNoDate || n <= 0) return date;
  int year = yearOf(date);
  int month = monthOf(date);
  std::int64_t day = dayOf(date) + n;
  while (day > daysInMonth(year, month)) {
    day -= daysInMonth(year, month);
    if (++month > kMonthsPerYear) {
      month = 1;
      ++year;
    }
  }
  return packedUpToTheLast(year, month, static_cast<int>(day));
}

PackedDate subtractDays(PackedDate date, std::int64_t n) {
  if (date == kNoDate || n <= 0) return date;
  int year = yearOf(date);
  int month = monthOf(date);
  std::int64_t day = dayOf(date) - n;
  while (day < 1) {
    if (--month < 1) {
      month = kMonthsPerYear;
      --year;
    }
    day += daysInMonth(year, month);
  }
  return packedDate(year, month, static_cast<int>(day));
}

PackedDate addMonths(PackedDate date, std::int64_t n) {
  if (date == kNoDate || n <= 0) return date;
  const std::int64_t months = monthOf(date) - 1 + n;
  const int year = yearOf(date) + static_cast<int>(months / kMonthsPerYear);
  const int month = static_cast<int>(months % kMonthsPerYear) + 1;
  return packedUpToTheLast(year, month, std::min(dayOf(date), daysInMonth(year, month)));
}

PackedDate firstOfPreviousMonth(PackedDate date) {
  if (date == kNoDate) return kNoDate;
  if (monthOf(date) <= 1) return packedDate(yearOf(date) - 1, kMonthsPerYear, 1);
  return packedDate(yearOf(date), monthOf(date) - 1, 1);
}

PackedDate firstOfNextMonth(PackedDate date) {
  if (date == kNoDate) return kNoDate;
  if (monthOf(date) >= kMonthsPerYear) return packedUpToTheLast(yearOf(date) + 1, 1, 1);
  return packedDate(yearOf(date), monthOf(date) + 1, 1);
}

PackedDate startOfWeek(PackedDate date) {
  return subtractDays(date, weekdayOf(date));
}

PackedDate endOfWeek(PackedDate date) {
  return addDays(date, kDaysPerWeek - 1 - weekdayOf(date));
}

std::string_view weekdayName(int weekday) {
  if (weekday < 0 || weekday >= kDaysPerWeek) return {};
  return kWeekdayNames[static_cast<std::size_t>(weekday)];
}

std::string_view shortWeekdayName(int weekday) {
  return weekdayName(weekday).substr(0, 3);
}

std::string_view monthName(int month) {
  if (month < 1 || month > kMonthsPerYear) return {};
  return kMonthNames[static_cast<std::size_t>(month - 1)];
}

std::string shortDateText(PackedDate date) {
  if (date == kNoDate) return {};
  const int year = yearOf(date);
  const int shown = year >= kFirstYear && year <= kLastShortYear ? year - kFirstYear : year;
  return fmt::format("{}/{}/{:02}", monthOf(date), dayOf(date), shown);
}

std::string longDateText(PackedDate date) {
  if (date == kNoDate) return {};
  return fmt::format("{} {}, {}", monthName(monthOf(date)), dayOf(date), yearOf(date));
}

std::string fullDateText(PackedDate date) {
  if (date == kNoDate) return {};
  return fmt::format("{}, {}", weekdayName(weekdayOf(date)), longDateText(date));
}

}  // namespace tarvel
