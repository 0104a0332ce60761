#include "foundation/TextFormats.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr std::int64_t kMinutesPerHour = 60;
constexpr std::int64_t kMinutesPerDay = 1440;
constexpr int kNoon = 12;
constexpr std::size_t kDigitsPerGroup = 3;
constexpr double kLongestInterval = 1e15;  // seconds: keeps any number, however wrong, within the integers

struct TimeOfDay {
  int hour;
  int minute;
};

TimeOfDay timeOfDay(std::int64_t minutes) {
  const std::int64_t inDay = (minutes % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay;
  return {static_cast<int>(inDay / kMinutesPerHour), static_cast<int>(inDay % kMinutesPerHour)};
}

int twelveHour(int hour) {
  return hour % kNoon == 0 ? kNoon : hour % kNoon;
}

std::string_view halfOfDay(int hour) {
  return hour < kNoon ? "am" : "pm";
}

}  // namespace

std::string timeText(std::int64_t minutes) {
  return fmt::format("{} {}", clockText(minutes), halfOfDay(timeOfDay(minutes).hour));
}

std::string clockText(std::int64_t minutes) {
  const TimeOfDay time = timeOfDay(minutes);
  return fmt::format("{}:{:02}", twelveHour(time.hour), time.minute);
}

std::string durationText(std::int64_t minutes) {
  if (minutes < kMinutesPerHour) return fmt::format("{} min", minutes);
  const std::int64_t hours = minutes / kMinutesPerHour;
  const std::int64_t rest = minutes % kMinutesPerHour;
  return rest == 0 ? fmt::format("{} hr", hours) : fmt::format("{} hr {} min", hours, rest);
}

std::string groupedNumber(std::int64_t number) {
  std::string text = std::to_string(number);
  const std::size_t firstDigit = number < 0 ? 1 : 0;
  for (std::size_t end = text.size(); end > firstDigit + kDigitsPerGroup;) {
    end -= kDigitsPerGroup;
    text.insert(end, 1, ',');
  }
  return text;
}

std::string dateAndTimeText(std::optional<Instant> instant, const TimeZone& zone) {
  if (!instant) return "?";
  const LocalTime time = zone.local(*instant);
  return fmt::format("{}/{}/{} {}:{:02}:{:02} {}", time.month, time.day, time.year, twelveHour(time.hour),
                     time.minute, time.second, halfOfDay(time.hour));
}

std::string intervalText(double seconds) {
  const double bounded = seconds > 0 ? std::min(seconds, kLongestInterval) : 0.0;
  const std::int64_t tenths = std::llround(bounded * 10);
  const std::int64_t wholeSeconds = tenths / 10;
  const std::int64_t minutes = wholeSeconds / 60;
  const std::int64_t hours = minutes / 60;
  if (hours == 0) return fmt::format("{}:{:02}.{}", minutes, wholeSeconds % 60, tenths % 10);
  return fmt::format("{}:{:02}:{:02}.{}", hours, minutes % 60, wholeSeconds % 60, tenths % 10);
}

std::size_t characterCount(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) !=
           0x80;  // every byte but those that continue a sequence
  }));
}

std::string lowercased(std::string_view text) {
  std::string result(text);
  for (char& letter : result) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return result;
}

}  // namespace tarvel
