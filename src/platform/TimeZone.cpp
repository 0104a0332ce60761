#include "platform/TimeZone.h"

#include <date/tz.h>

#include <cmath>
#include <cstdlib>

namespace tarvel {

namespace {

// What the calendar can name: 0001-01-02 to 9999-12-30, a day off either end for the offsets.
constexpr std::int64_t kEarliestSeconds = -62'135'510'400;
constexpr std::int64_t kLatestSeconds = 253'402'128'000;
// Zone files list each change of the clocks up to this year, and only give the rule for the ones after. The
// date library reads the list alone.
constexpr int kLastListedYear = 2037;
constexpr int kBeyondAllLists = 3000;

date::sys_seconds sysSecondsOf(Instant instant) {
  const double since1970 = std::isnan(instant.seconds)
                               ? static_cast<double>(kReferenceDateSince1970)
                               : instant.seconds + static_cast<double>(kReferenceDateSince1970);
  const double inRange = std::fmin(std::fmax(std::floor(since1970), static_cast<double>(kEarliestSeconds)),
                                   static_cast<double>(kLatestSeconds));
  return date::sys_seconds{std::chrono::seconds{static_cast<std::int64_t>(inRange)}};
}

/// The moment of the last listed years at which the clocks stand as they will at `time`. Rules go by the
/// weekdays of a month, so from March on a year with the same weekdays will do, and the last ten have all
/// seven kinds. No rule changes the clocks in January or February, where the leap day would be in the way.
date::sys_seconds withinListedYears(date::sys_seconds time) {
  const date::year_month_day day{date::floor<date::days>(time)};
  if (int{day.year()} <= kLastListedYear) return time;
  if (day.month() < date::March) {
    return time - (date::sys_days{day.year() / date::January / 1} -
                   date::sys_days{date::year{kLastListedYear} / date::January / 1});
  }
  const date::sys_days march = day.year() / date::March / 1;
  for (int year = kLastListedYear;; --year) {
    const date::sys_days candidate = date::year{year} / date::March / 1;
    if (date::weekday{candidate} == date::weekday{march}) return time - (march - candidate);
  }
}

date::sys_info infoAt(const date::time_zone& zone, date::sys_seconds time) {
  date::sys_info info = zone.get_info(time);
  // A few zones, whose changes follow the moon, list them for longer.
  const bool listedForLonger = info.end < date::sys_days{date::year{kBeyondAllLists} / date::January / 1};
  return listedForLonger ? info : zone.get_info(withinListedYears(time));
}

}  // namespace

std::optional<TimeZone> TimeZone::named(std::string_view identifier) {
  try {
    const date::time_zone* zone = date::locate_zone(identifier);
    zone->get_info(date::sys_seconds{});  // reads the zone's file now, so that no later look-up can fail
    return TimeZone(zone);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

TimeZone TimeZone::utc() {
  static const date::time_zone* const zone = []() -> const date::time_zone* {
    for (const char* name : {"Etc/UTC", "UTC"}) {
      if (const auto found = named(name)) return found->zone_;
    }
    return nullptr;  // a machine without zone data
  }();
  return TimeZone(zone);
}

TimeZone TimeZone::ofMachine() {
  if (const char* fromEnvironment = std::getenv("TZ")) {
    std::string_view name = fromEnvironment;
    if (name.starts_with(':')) name.remove_prefix(1);
    if (const auto zone = named(name)) return *zone;
  }
  try {
    if (const auto zone = named(date::current_zone()->name())) return *zone;
  } catch (const std::exception&) {
    // A machine whose setting names no zone: told by the return value.
  }
  return utc();
}

std::string TimeZone::identifier() const {
  return zone_ == nullptr ? "UTC" : zone_->name();
}

LocalTime TimeZone::local(Instant instant) const {
  const date::sys_seconds utcTime = sysSecondsOf(instant);
  const auto offset = zone_ == nullptr ? std::chrono::seconds{0} : infoAt(*zone_, utcTime).offset;
  const auto time = utcTime + offset;
  const auto midnight = date::floor<date::days>(time);
  const date::year_month_day day{midnight};
  const date::hh_mm_ss clock{time - midnight};
  return {int{day.year()},
          static_cast<int>(unsigned{day.month()}),
          static_cast<int>(unsigned{day.day()}),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

std::string TimeZone::abbreviation(Instant instant) const {
  if (zone_ == nullptr) return "UTC";
  return infoAt(*zone_, sysSecondsOf(instant)).abbrev;
}

}  // namespace tarvel
