#pragma once
#include <compare>
#include <cstdint>

namespace tarvel {

/// A point in time: seconds since 2001-01-01 00:00:00 UTC, leap seconds not counted. File dates are such
/// instants, and two of them agree only when their doubles are equal bit for bit.
struct Instant {
  double seconds = 0.0;

  friend constexpr auto operator<=>(const Instant&, const Instant&) = default;
};

/// The instant `seconds` later (earlier when negative).
constexpr Instant operator+(Instant instant, double seconds) {
  return {instant.seconds + seconds};
}
constexpr Instant operator-(Instant instant, double seconds) {
  return {instant.seconds - seconds};
}
/// Seconds from `earlier` to `later`.
constexpr double operator-(Instant later, Instant earlier) {
  return later.seconds - earlier.seconds;
}

/// Seconds between 1970-01-01 and 2001-01-01, both 00:00:00 UTC.
inline constexpr std::int64_t kReferenceDateSince1970 = 978'307'200;

/// A file system's time stamp: whole seconds since 1970-01-01 UTC and 0 to 999,999,999 nanoseconds after
/// them.
struct FileTime {
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;

  friend constexpr auto operator<=>(const FileTime&, const FileTime&) = default;
};

/// Both round to the nearest. From 97 days after the reference date on, an instant's own steps are coarser
/// than a nanosecond, so that `instantOf(fileTimeOf(t))` is `t` bit for bit.
FileTime fileTimeOf(Instant instant);
Instant instantOf(FileTime time);

}  // namespace tarvel
