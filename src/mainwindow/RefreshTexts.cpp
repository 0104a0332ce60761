#include "mainwindow/RefreshTexts.h"

#include <algorithm>
#include <cmath>

#include "auxwindows/DurationTexts.h"

namespace tarvel {
namespace {

constexpr double kSecondsPerMinute = 60.0;

/// `lead` and the wait for the next refresh; empty if none is waiting.
std::string nextTryText(const RefreshableProtocol& thing, const std::string& lead) {
  const double wait = thing.secondsUntilRefresh();
  return wait > 0.0 ? lead + coarseDurationText(wait) : std::string();
}

}  // namespace

std::string refreshStatusText(const RefreshableProtocol& thing, Instant now) {
  if (thing.refreshInProgress()) return "Refreshing…";
  if (thing.errorKind() != DownloadErrorKind::noError) {
    return std::string(textOf(thing.errorKind())) + nextTryText(thing, " — next try in ");
  }
  const auto stamp = thing.lastRefreshTimeStamp();
  if (!stamp) return "Not updated yet";
  const double age = now - *stamp;
  if (age < kSecondsPerMinute) return "Updated just now";
  return "Updated " + coarseDurationText(age) + " ago";
}

std::string emptyListText(const RefreshableProtocol& catalogue, const std::string& serverURL) {
  if (catalogue.refreshInProgress()) return "Loading the list of rinks from " + serverURL + "…";
  const std::string next = nextTryText(catalogue, "\n\nNext try in ");
  if (catalogue.errorKind() != DownloadErrorKind::noError) {
    return std::string(textOf(catalogue.errorKind())) + "\n" + serverURL + next;
  }
  if (catalogue.lastRefreshTimeStamp()) return "There are no rinks at " + serverURL + ".";
  return "The list of rinks has not been loaded yet." + next;
}

double secondsUntilTextChanges(const RefreshableProtocol& thing, Instant now) {
  if (thing.refreshInProgress()) return kSecondsPerMinute;
  const double wait = thing.secondsUntilRefresh();
  const bool counts = thing.errorKind() != DownloadErrorKind::noError || !thing.lastRefreshTimeStamp();
  if (counts) return wait > 0.0 && wait <= kSecondsPerMinute + 1.0 ? 1.0 : kSecondsPerMinute / 2;
  const double age = std::max(0.0, now - *thing.lastRefreshTimeStamp());
  // The text rounds to whole minutes, so it turns half a minute before and after each.
  const double half = kSecondsPerMinute / 2;
  const double toTurn = kSecondsPerMinute - std::fmod(age + half, kSecondsPerMinute);
  return age < kSecondsPerMinute ? kSecondsPerMinute - age : std::max(1.0, toTurn);
}

}  // namespace tarvel
