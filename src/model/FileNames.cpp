#include "model/FileNames.h"

#include <fmt/format.h>

#include <charconv>
#include <vector>

#include "platform/FileSystem.h"

namespace tarvel {

namespace {

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

/// The id in "venue-7".
std::optional<std::int64_t> parseVenue(std::string_view text) {
  const auto parts = split(text, '-');
  if (parts.size() != 2 || parts[0] != "venue") return std::nullopt;
  return parseInteger(parts[1]);
}

}  // namespace

std::optional<std::int64_t> parseInteger(std::string_view text) {
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return std::nullopt;
  }
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string schedulesFileName(std::int64_t venueID) {
  return fmt::format("venue-{}_schedules.b1", venueID);
}

std::optional<std::int64_t> parseSchedulesFileName(std::string_view fileName) {
  if (extensionOf(fileName) != "b1") return std::nullopt;
  const std::string base = withoutExtension(fileName);
  const auto parts = split(base, '_');
  if (parts.size() != 2 || parts[1] != "schedules") return std::nullopt;
  return parseVenue(parts[0]);
}

std::string weekFileName(std::int64_t venueID, PackedDate weekOf) {
  return fmt::format("venue-{}_week-{}-{:02}-{:02}.b1", venueID, yearOf(weekOf), monthOf(weekOf),
                     dayOf(weekOf));
}

std::optional<WeekName> parseWeekName(std::string_view nameWithoutExtension) {
  const auto parts = split(nameWithoutExtension, '_');
  if (parts.size() != 2) return std::nullopt;
  const auto venueID = parseVenue(parts[0]);
  const auto week = split(parts[1], '-');
  if (!venueID || week.size() != 4 || week[0] != "week") return std::nullopt;
  const auto year = parseInteger(week[1]);
  const auto month = parseInteger(week[2]);
  const auto day = parseInteger(week[3]);
  if (!year || !month || !day) return std::nullopt;
  const std::uint64_t packed = (static_cast<std::uint64_t>(*year) << 16) +
                               (static_cast<std::uint64_t>(*month) << 8) + static_cast<std::uint64_t>(*day);
  return WeekName{*venueID, static_cast<PackedDate>(packed)};
}

bool isPlainFileName(std::string_view name) {
  return !name.empty() && name.front() != '.' && name.find('/') == std::string_view::npos &&
         name.find('\0') == std::string_view::npos;
}

std::string rinkFolderName(std::int64_t rinkID) {
  return fmt::format("rink-{}", rinkID);
}

}  // namespace tarvel
