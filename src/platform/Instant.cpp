#include "platform/Instant.h"

#include <cmath>

namespace tarvel {

namespace {
constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
// Far beyond any date a disk can hold, and far within the integers: keeps nonsense from the outside
// convertible.
constexpr double kFurthestSeconds = 1e15;
}  // namespace

FileTime fileTimeOf(Instant instant) {
  if (std::isnan(instant.seconds)) return {kReferenceDateSince1970, 0};
  const double seconds = std::fmin(std::fmax(instant.seconds, -kFurthestSeconds), kFurthestSeconds);
  // The whole seconds and the fraction of a double are doubles themselves: up to here nothing is rounded.
  const double whole = std::floor(seconds);
  FileTime time{static_cast<std::int64_t>(whole) + kReferenceDateSince1970,
                std::llround(static_cast<long double>(seconds - whole) * kNanosecondsPerSecond)};
  if (time.nanoseconds == kNanosecondsPerSecond) time = {time.seconds + 1, 0};
  return time;
}

Instant instantOf(FileTime time) {
  const auto whole = static_cast<long double>(time.seconds - kReferenceDateSince1970);
  return {static_cast<double>(whole + static_cast<long double>(time.nanoseconds) / kNanosecondsPerSecond)};
}

}  // namespace tarvel
