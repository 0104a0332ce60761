#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/PretendTime.h"
#include "platform/TimeZone.h"

namespace tarvel {

/// A calendar day: (year << 16) + (month << 8) + day, in no time zone; it compares in calendar order. 0 is no
/// date, and every operation below gives 0, or its input, for it. Years before 2000 are outside this system.
using PackedDate = std::uint32_t;
inline constexpr PackedDate kNoDate = 0;

constexpr PackedDate packedDate(int year, int month, int day) {
  return (static_cast<std::uint32_t>(year) << 16) + (static_cast<std::uint32_t>(month) << 8) +
         static_cast<std::uint32_t>(day);
}
constexpr int yearOf(PackedDate date) {
  return static_cast<int>(date >> 16);
}
constexpr int monthOf(PackedDate date) {
  return static_cast<int>((date >> 8) & 0xFF);
}
constexpr int dayOf(PackedDate date) {
  return static_cast<int>(date & 0xFF);
}
/// The day of a local time.
PackedDate packedDate(const LocalTime& time);

/// The day of now, pretend offset included, by the machine's zone.
PackedDate todayDate(const PretendTime& time);

/// 28 to 31, by the Gregorian rule.
int daysInMonth(int year, int month);
/// 0 for Sunday to 6 for Saturday; 0 for no date. A year before 2000 stops the program.
int weekdayOf(PackedDate date);
/// Makes the table behind `weekdayOf` ready up to that year, and eight beyond.
void prepareWeekdays(int year);
PackedDate nextDay(PackedDate date);
PackedDate previousDay(PackedDate date);
/// `n` days later or earlier, n 0 or more.
PackedDate addDays(PackedDate date, std::int64_t n);
PackedDate subtractDays(PackedDate date, std::int64_t n);
/// `n` months later, n 0 or more; a day beyond the new month's end becomes its last.
PackedDate addMonths(PackedDate date, std::int64_t n);
PackedDate firstOfPreviousMonth(PackedDate date);
PackedDate firstOfNextMonth(PackedDate date);
/// The Sunday, and the Saturday, of the date's week, whatever the machine's locale says of weeks.
PackedDate startOfWeek(PackedDate date);
PackedDate endOfWeek(PackedDate date);

/// "Sunday" to "Saturday", "Sun" to "Sat", "January" to "December"; weekdays count from 0, months from 1.
std::string_view weekdayName(int weekday);
std::string_view shortWeekdayName(int weekday);
std::string_view monthName(int month);

/// 3/2/25; years from 2000 to 2999 are shown less 2000. Empty for no date.
std::string shortDateText(PackedDate date);
/// March 2, 2025. Empty for no date.
std::string longDateText(PackedDate date);
/// Sunday, March 2, 2025. Empty for no date.
std::string fullDateText(PackedDate date);

}  // namespace tarvel
