#include "refresh/NextRefresh.h"

#include <algorithm>

namespace tarvel {

namespace {

std::optional<Instant> after(std::optional<Instant> stamp, double seconds) {
  if (!stamp) return std::nullopt;
  return *stamp + seconds;
}

/// What both share: an error is tried again in its own time, and a first mismatch once in half an hour; a
/// second mismatch in a row waits for the ordinary time, so that a server which stays inconsistent isn't
/// hammered.
std::optional<Instant> nextByOutcome(const RefreshState& state, double interval, Instant now) {
  switch (state.errorKind) {
    case DownloadErrorKind::connectionError:
      return after(state.errorTimeStamp, kRetryAfterConnectionError);
    case DownloadErrorKind::serverError:
    case DownloadErrorKind::invalidData:
      return after(state.errorTimeStamp, kRetryAfterOtherError);
    case DownloadErrorKind::noError:
      break;
  }
  if (state.mismatchError && !state.prevMismatchError) return now + kRetryAfterMismatch;
  return after(state.lastRefreshTimeStamp, interval);
}

}  // namespace

std::optional<Instant> nextMasterRefresh(const RefreshState& state, bool updateRequired, AtLaunch atLaunch,
                                         Instant now) {
  const bool unfinished = state.errorKind == DownloadErrorKind::connectionError || updateRequired;
  if (atLaunch == AtLaunch::yes && unfinished) return std::nullopt;
  return nextByOutcome(state, kMasterRefreshInterval, now);
}

std::optional<Instant> nextRinkRefresh(const RefreshState& state, DownloadErrorKind masterErrorKind,
                                       Instant now) {
  if (masterErrorKind != DownloadErrorKind::connectionError)
    return nextByOutcome(state, kRinkRefreshInterval, now);
  // The catalogue's server can't be reached. A rink that is in order keeps its time, any other is tried at
  // once.
  const bool inOrder = state.errorKind == DownloadErrorKind::noError && !state.mismatchError;
  return inOrder ? after(state.lastRefreshTimeStamp, kRinkRefreshInterval) : std::nullopt;
}

double secondsToRefresh(std::optional<Instant> next, Instant now, double longest) {
  if (!next) return kLeastSecondsToRefresh;
  return std::clamp(*next - now, kLeastSecondsToRefresh, longest);
}

}  // namespace tarvel
