#include "auxwindows/DurationTexts.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>

namespace tarvel {
namespace {

constexpr double kSecondsPerMinute = 60.0;
constexpr std::int64_t kSixty = 60;  // seconds in a minute, minutes in an hour

}  // namespace

std::string clockFormText(double seconds) {
  const std::int64_t whole = std::llround(seconds);
  const std::int64_t minutes = whole / kSixty;
  if (minutes < kSixty) return fmt::format("{}:{:02}", minutes, whole % kSixty);
  return fmt::format("{}:{:02}:{:02}", minutes / kSixty, minutes % kSixty, whole % kSixty);
}

std::string coarseDurationText(double seconds) {
  if (seconds <= kSecondsPerMinute) {
    return fmt::format("{} sec", static_cast<std::int64_t>(std::floor(seconds)));
  }
  const std::int64_t minutes = std::llround(seconds / kSecondsPerMinute);
  const std::int64_t hours = minutes / kSixty;
  const std::int64_t rest = minutes % kSixty;
  if (hours == 0) return rest == 1 ? "1 minute" : fmt::format("{} minutes", rest);
  if (rest != 0) return fmt::format("{} hr {} min", hours, rest);
  return hours == 1 ? "1 hour" : fmt::format("{} hours", hours);
}

}  // namespace tarvel
