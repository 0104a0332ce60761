#include "FieldParsers.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string>
#include <vector>

#include "foundation/TextFormats.h"

namespace tarvel::publish {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Digits alone, `least` to `most` of them.
std::optional<int> digits(std::string_view text, std::size_t least, std::size_t most) {
  if (text.size() < least || text.size() > most || !std::all_of(text.begin(), text.end(), isDigit)) {
    return std::nullopt;
  }
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t at = 0;;) {
    const std::size_t end = text.find(separator, at);
    parts.push_back(text.substr(at, end - at));
    if (end == std::string_view::npos) return parts;
    at = end + 1;
  }
}

std::chrono::year_month_day calendarDay(PackedDate date) {
  return std::chrono::year(yearOf(date)) / monthOf(date) / dayOf(date);
}

std::optional<int> secondsOfDay(std::string_view text) {
  const auto parts = split(text, ':');
  if (parts.size() != 3) return std::nullopt;
  const auto hour = digits(parts[0], 2, 2);
  const auto minute = digits(parts[1], 2, 2);
  const auto second = digits(parts[2], 2, 2);
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
  return *hour * 3600 + *minute * 60 + *second;
}

}  // namespace

std::optional<PackedDate> parseDate(std::string_view text) {
  const auto parts = split(text, '-');
  if (parts.size() != 3) return std::nullopt;
  const auto year = digits(parts[0], 4, 4);
  const auto month = digits(parts[1], 2, 2);
  const auto day = digits(parts[2], 2, 2);
  if (!year || !month || !day || *year < 2000 || *year > 2999) return std::nullopt;
  const PackedDate date = packedDate(*year, *month, *day);
  if (!calendarDay(date).ok()) return std::nullopt;
  return date;
}

std::optional<int> parseTime(std::string_view text) {
  const auto parts = split(text, ':');
  if (parts.size() != 2) return std::nullopt;
  const auto hour = digits(parts[0], 1, 2);
  const auto minute = digits(parts[1], 2, 2);
  if (!hour || !minute || *hour > 47 || *minute > 59) return std::nullopt;
  return *hour * 60 + *minute;
}

std::optional<int> parseWeekday(std::string_view text) {
  const std::string wanted = lowercased(text);
  for (int day = 0; day < 7; ++day) {
    if (wanted == lowercased(weekdayName(day)) || wanted == lowercased(shortWeekdayName(day))) return day;
  }
  return std::nullopt;
}

std::optional<std::int64_t> parseVersion(std::string_view text) {
  constexpr std::string_view kBeta = " Beta ";
  constexpr int kLargest = 0xFFFF;
  int beta = 0;
  if (const std::size_t at = text.find(kBeta); at != std::string_view::npos) {
    const auto number = digits(text.substr(at + kBeta.size()), 1, 5);
    if (!number || *number == 0 || *number > kLargest) return std::nullopt;
    beta = *number;
    text = text.substr(0, at);
  }
  const auto parts = split(text, '.');
  if (parts.size() != 3) return std::nullopt;
  std::int64_t packed = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto number = digits(parts[i], 1, 5);
    // The major number's top bit is the packed value's sign.
    if (!number || *number > (i == 0 ? kLargest >> 1 : kLargest)) return std::nullopt;
    packed = (packed << 16) | *number;
  }
  return (packed << 16) | beta;
}

std::optional<std::uint64_t> parsePhone(std::string_view text) {
  if (text.empty()) return 0;
  constexpr std::string_view kPassedOver = " ()-";
  std::uint64_t number = 0;
  std::uint64_t count = 0;
  for (const char c : text) {
    if (kPassedOver.find(c) != std::string_view::npos) continue;
    if (!isDigit(c) || count == 10) return std::nullopt;
    number = (number << 4) | static_cast<std::uint64_t>(c - '0');
    ++count;
  }
  if (count != 7 && count != 10) return std::nullopt;
  return number | (count << 60);
}

std::optional<std::array<double, 4>> parseColor(std::string_view text) {
  if ((text.size() != 7 && text.size() != 9) || text[0] != '#') return std::nullopt;
  std::array<double, 4> parts = {0.0, 0.0, 0.0, 1.0};
  for (std::size_t i = 0; i * 2 + 1 < text.size(); ++i) {
    unsigned value = 0;
    const char* begin = text.data() + 1 + 2 * i;
    const auto [end, error] = std::from_chars(begin, begin + 2, value, 16);
    if (error != std::errc() || end != begin + 2) return std::nullopt;
    parts.at(i) = value / 255.0;
  }
  return parts;
}

std::optional<Instant> parseInstant(std::string_view text) {
  const auto date = parseDate(text.substr(0, 10));
  if (!date) return std::nullopt;
  const auto midnight = static_cast<double>(dayNumber(*date) * 86400 - kReferenceDateSince1970);
  if (text.size() == 10) return Instant{midnight};
  if (text.size() != 20 || text[10] != 'T' || text.back() != 'Z') return std::nullopt;
  const auto seconds = secondsOfDay(text.substr(11, 8));
  if (!seconds) return std::nullopt;
  return Instant{midnight + *seconds};
}

bool isWebAddress(std::string_view text) {
  std::string_view rest;
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (text.starts_with(scheme)) rest = text.substr(scheme.size());
  }
  if (rest.empty() || std::string_view("/:?#").find(rest[0]) != std::string_view::npos) return false;
  return std::all_of(rest.begin(), rest.end(), [](char c) {
    return c > ' ' && c < '\x7F' && std::string_view("\"<>\\^`{|}").find(c) == std::string_view::npos;
  });
}

bool isSafePath(std::string_view text) {
  const auto safe = [](char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '_' || c == '-';
  };
  const auto parts = split(text, '/');
  return std::all_of(parts.begin(), parts.end(), [&](std::string_view part) {
    return !part.empty() && part[0] != '.' && std::all_of(part.begin(), part.end(), safe);
  });
}

std::int64_t dayNumber(PackedDate date) {
  return std::chrono::sys_days(calendarDay(date)).time_since_epoch().count();
}

}  // namespace tarvel::publish
