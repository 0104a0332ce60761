#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"
#include "platform/TimeZone.h"

namespace tarvel {

/// A time of day in minutes on the 12-hour clock: "5:30 am", "12:00 pm". Minutes of 1440 and above wrap
/// around.
std::string timeText(std::int64_t minutes);
/// The same without am or pm, as axis labels have it: "5:30".
std::string clockText(std::int64_t minutes);
/// "45 min", "2 hr", "1 hr 30 min".
std::string durationText(std::int64_t minutes);
/// The number with a comma between groups of three digits.
std::string groupedNumber(std::int64_t number);
/// "3/14/2026 5:03:10 pm" in the zone; "?" for no instant.
std::string dateAndTimeText(std::optional<Instant> instant, const TimeZone& zone);
/// Seconds as minutes, seconds and tenths, "2:05.5", and from an hour on with the hours first, "1:02:05.5".
std::string intervalText(double seconds);
/// The number of characters (code points) of a UTF-8 text.
std::size_t characterCount(std::string_view utf8);
/// ASCII letters in lower case, the rest as it is: for comparisons regardless of case.
std::string lowercased(std::string_view text);

}  // namespace tarvel
