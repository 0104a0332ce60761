#pragma once
#include <optional>

#include "model/RefreshState.h"

namespace tarvel {

// How long a refresh lasts, in seconds.
inline constexpr double kRetryAfterConnectionError = 600.0;  // 10 minutes
inline constexpr double kRetryAfterOtherError = 14'400.0;    // 4 hours
inline constexpr double kRetryAfterMismatch = 1'800.0;       // 30 minutes
inline constexpr double kMasterRefreshInterval = 172'800.0;  // 2 days
inline constexpr double kRinkRefreshInterval = 14'400.0;     // 4 hours
inline constexpr double kLeastSecondsToRefresh = 2.0;

/// When the catalogue is refreshed next; none for at once. At launch a state that an error or a required
/// update left behind is tried again at once.
enum class AtLaunch { no, yes };
std::optional<Instant> nextMasterRefresh(const RefreshState& state, bool updateRequired, AtLaunch atLaunch,
                                         Instant now);
/// When a rink is refreshed next; none for at once.
std::optional<Instant> nextRinkRefresh(const RefreshState& state, DownloadErrorKind masterErrorKind,
                                       Instant now);

/// Seconds from now to that time, at least 2, and 2 for none. At most `longest`: a stamp may come from a
/// clock that was ahead and has been set back since, and must not put the refresh off by as much.
double secondsToRefresh(std::optional<Instant> next, Instant now, double longest);

}  // namespace tarvel
