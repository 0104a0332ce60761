#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/CalendarDates.h"

namespace tarvel {

inline constexpr std::string_view kMainFileName = "main.b1";
inline constexpr std::string_view kNoticesFileName = "notices.b1";
inline constexpr std::string_view kPhotoCollectionFileName = "photoCollection.b1";
inline constexpr std::string_view kPhotosFolderName = "Photos";
inline constexpr std::string_view kDefsFileName = "defs.b1";
inline constexpr std::string_view kRinksFileName = "rinks.b1";

/// Names come from servers, so they are taken apart strictly; what doesn't fit to the letter is no such name.
/// The integers in them are decimal and may carry a leading + or -.
std::optional<std::int64_t> parseInteger(std::string_view text);

/// venue-7_schedules.b1
std::string schedulesFileName(std::int64_t venueID);
/// The venue of a schedules file's name, given with its extension.
std::optional<std::int64_t> parseSchedulesFileName(std::string_view fileName);

struct WeekName {
  std::int64_t venueID = 0;
  PackedDate weekOf = kNoDate;
  friend bool operator==(const WeekName&, const WeekName&) = default;
};
/// venue-7_week-2025-03-02.b1
std::string weekFileName(std::int64_t venueID, PackedDate weekOf);
/// Takes apart a week file's name, given without its extension. Month and day aren't checked for their range.
std::optional<WeekName> parseWeekName(std::string_view nameWithoutExtension);

/// True for a name that can stand in a folder of the store: not empty, no separator, no leading dot.
bool isPlainFileName(std::string_view name);

/// `rink-7`, the folder of a rink's files.
std::string rinkFolderName(std::int64_t rinkID);

}  // namespace tarvel
