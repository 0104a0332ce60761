#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "foundation/CalendarDates.h"
#include "platform/Instant.h"

/// The small languages of the descriptions' texts. Each takes a whole text and gives none if it is not of its
/// form.
namespace tarvel::publish {

/// "2026-03-01", a day that exists, of the years 2000 to 2999.
std::optional<PackedDate> parseDate(std::string_view text);
/// "13:05" and, for the night after, up to "47:59"; minutes after midnight.
std::optional<int> parseTime(std::string_view text);
/// "Sunday" or "Sun" to "Saturday" or "Sat", in any case; 0 to 6.
std::optional<int> parseWeekday(std::string_view text);
/// "6.1.0" or "6.2.0 Beta 1"; packed: 16 bits each for major, minor, patch and beta.
std::optional<std::int64_t> parseVersion(std::string_view text);
/// 7 or 10 digits with blanks, parentheses and hyphens anywhere between; packed: 4 bits a digit, and their
/// count in the uppermost four. The empty text is 0, no number.
std::optional<std::uint64_t> parsePhone(std::string_view text);
/// "#RRGGBB" or "#RRGGBBAA"; red, green, blue, alpha from 0 to 1.
std::optional<std::array<double, 4>> parseColor(std::string_view text);
/// "2026-03-01T17:30:00Z", or "2026-03-01" for its first moment; universal time.
std::optional<Instant> parseInstant(std::string_view text);

/// "http://" or "https://", a host, and no blank, quote or control character.
bool isWebAddress(std::string_view text);
/// Parts of letters, digits, '.', '_' and '-' that don't begin with a dot, with '/' between: what may stand
/// in a URL and below a folder alike, and never leads out of it.
bool isSafePath(std::string_view text);

/// Days since 1970-01-01 of a date.
std::int64_t dayNumber(PackedDate date);

}  // namespace tarvel::publish
