#pragma once
#include <string>

namespace tarvel {

/// Seconds as a clock counts them down: minutes and seconds, "5:00", from an hour on with the hours first,
/// "1:02:05". Rounded to whole seconds.
std::string clockFormText(double seconds);

/// Seconds in words: "45 sec", "5 minutes", "1 hr 5 min", "2 hours".
std::string coarseDurationText(double seconds);

}  // namespace tarvel
