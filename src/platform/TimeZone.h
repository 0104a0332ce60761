#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace date {
class time_zone;
}

namespace tarvel {

/// An instant as the clocks and calendars of a zone show it (Gregorian).
struct LocalTime {
  int year = 2001;
  int month = 1;   ///< 1 to 12
  int day = 1;     ///< 1 to 31
  int hour = 0;    ///< 0 to 23
  int minute = 0;  ///< 0 to 59
  int second = 0;  ///< 0 to 59, a fraction dropped
  friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// A zone of the system's time zone data. A plain value, cheap to copy.
class TimeZone {
 public:
  /// The zone of an identifier such as "America/Denver"; none for an empty or unknown text.
  static std::optional<TimeZone> named(std::string_view identifier);
  static TimeZone utc();
  /// The zone that the machine is set to now; UTC if that can't be told.
  static TimeZone ofMachine();

  std::string identifier() const;
  LocalTime local(Instant instant) const;
  /// The zone's short name at that instant, such as "MST" or "MDT".
  std::string abbreviation(Instant instant) const;

  /// Zones are the same when their identifiers are.
  friend bool operator==(const TimeZone&, const TimeZone&) = default;

 private:
  explicit TimeZone(const date::time_zone* zone) : zone_(zone) {}
  const date::time_zone* zone_;  ///< lives as long as the process
};

}  // namespace tarvel
