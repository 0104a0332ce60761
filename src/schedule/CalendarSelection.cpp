#include "schedule/CalendarSelection.h"

#include <fmt/format.h>

#include <algorithm>

namespace tarvel {
namespace {

constexpr std::int64_t kDaysPerWeek = 7;

PackedDate lastOfMonth(PackedDate date) {
  return packedDate(yearOf(date), monthOf(date), daysInMonth(yearOf(date), monthOf(date)));
}

PackedDate sameDayOfPreviousMonth(PackedDate date) {
  if (date == kNoDate) return kNoDate;
  const PackedDate first = firstOfPreviousMonth(date);
  return first + static_cast<PackedDate>(std::min(dayOf(date), dayOf(lastOfMonth(first))) - 1);
}

}  // namespace

CalendarSelection CalendarSelection::around(PackedDate date, PeriodViewOption period) {
  if (date == kNoDate) return {period, kNoDate, kNoDate};
  switch (period) {
    case PeriodViewOption::day:
      return {period, date, date};
    case PeriodViewOption::week:
      return {period, startOfWeek(date), endOfWeek(date)};
    case PeriodViewOption::month:
    case PeriodViewOption::year:
      break;
  }
  return {period, firstOfMonth(date), lastOfMonth(date)};
}

std::string CalendarSelection::text() const {
  if (first == kNoDate) return {};
  switch (period) {
    case PeriodViewOption::day:
      return fullDateText(first);
    case PeriodViewOption::week:
      return "Week of " + longDateText(first);
    case PeriodViewOption::month:
    case PeriodViewOption::year:
      break;
  }
  return monthTitle(first);
}

PackedDate nextInPeriods(PackedDate date, PeriodViewOption period) {
  switch (period) {
    case PeriodViewOption::day:
      return nextDay(date);
    case PeriodViewOption::week:
      return addDays(date, kDaysPerWeek);
    case PeriodViewOption::month:
    case PeriodViewOption::year:
      break;
  }
  return addMonths(date, 1);
}

PackedDate previousInPeriods(PackedDate date, PeriodViewOption period) {
  switch (period) {
    case PeriodViewOption::day:
      return previousDay(date);
    case PeriodViewOption::week:
      return subtractDays(date, kDaysPerWeek);
    case PeriodViewOption::month:
    case PeriodViewOption::year:
      break;
  }
  return sameDayOfPreviousMonth(date);
}

PackedDate firstOfMonth(PackedDate date) {
  return date == kNoDate ? kNoDate : packedDate(yearOf(date), monthOf(date), 1);
}

std::string monthTitle(PackedDate date) {
  return fmt::format("{} {}", monthName(monthOf(date)), yearOf(date));
}

}  // namespace tarvel
