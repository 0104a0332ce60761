#include "simulation/RefreshWatch.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tarvel::sim {

namespace {

constexpr double kMinute = 60.0, kHour = 3'600.0, kDay = 86'400.0;
constexpr double kNoTimer = -1.0;
constexpr double kTolerance = 1e-3;

std::string indexKeyOf(std::int64_t rinkID) {
  return fmt::format("rink-{}/master.b1", rinkID);
}

}  // namespace

/// What the rules say of a timer that is armed now.
double RefreshWatch::armedSeconds(Whose whose, const RefreshState& state) const {
  const Instant now = world_.now();
  const double ordinary = whose == Whose::catalogue ? 2 * kDay : 4 * kHour;
  const bool cutOff = program_.model.refreshState.errorKind == DownloadErrorKind::connectionError;
  std::optional<Instant> base;
  double wait = ordinary;
  if (whose == Whose::rink && cutOff) {
    const bool inOrder = state.errorKind == DownloadErrorKind::noError && !state.mismatchError;
    if (inOrder) base = state.lastRefreshTimeStamp;
  } else if (state.errorKind != DownloadErrorKind::noError) {
    base = state.errorTimeStamp;
    wait = state.errorKind == DownloadErrorKind::connectionError ? 10 * kMinute : 4 * kHour;
  } else if (state.mismatchError && !state.prevMismatchError) {
    base = now;
    wait = 30 * kMinute;
  } else {
    base = state.lastRefreshTimeStamp;
  }
  constexpr double kLeast = 2.0;
  return base ? std::clamp(*base - now + wait, kLeast, ordinary) : kLeast;
}

std::string RefreshWatch::whoAsks(const std::string& url) const {
  for (const auto& rink : program_.model.recentRinks) {
    const auto& urls = rink->refreshState.requestedFiles;
    if (std::find(urls.begin(), urls.end(), url) != urls.end()) return indexKeyOf(rink->rinkID);
  }
  return "root.b1";
}

void RefreshWatch::requested(const std::string& url) {
  const bool index = url.ends_with("/root.b1") || url.ends_with("/master.b1");
  if (!index || anytime_) return;
  const std::string key = whoAsks(url);
  const auto found = watched_.find(key);
  const double now = world_.seconds();
  const bool known = found != watched_.end();
  const bool due = known && found->second.dueAt && now >= *found->second.dueAt - kTolerance;
  const bool returned =
      known && found->second.waitsForConnection && returnDue_ && now >= *returnDue_ - kTolerance;
  if (known) found->second.lastAsked = now;
  if (!due && !returned) alarms_.ring(Alarm::interval, key + " is asked for before its time");
}

void RefreshWatch::checkOne(const std::string& key, Whose whose, const RefreshState& state,
                            double secondsLeft, bool mayRest) {
  Watched& watched = watched_[key];
  const bool hasTimer = secondsLeft != kNoTimer;
  watched.inProgress = state.refreshInProgress;
  // `mayRest`: with an update required a rink's refresh does nothing, also while a timer of before still
  // runs.
  watched.waitsForConnection = hasTimer && !mayRest && !state.refreshInProgress &&
                               state.errorKind == DownloadErrorKind::connectionError;
  if (!hasTimer) {
    watched.dueAt.reset();
    if (!state.refreshInProgress && !mayRest) alarms_.ring(Alarm::timers, key + " waits without a timer");
    return;
  }
  const double dueAt = world_.seconds() + secondsLeft;
  if (watched.dueAt && std::abs(*watched.dueAt - dueAt) < kTolerance) return;
  watched.dueAt = dueAt;
  const double rule = armedSeconds(whose, state);
  // What was armed at a launch goes by a state that was only partly known.
  if (std::abs(secondsLeft - rule) > kTolerance && !anytime_) {
    alarms_.ring(Alarm::interval,
                 fmt::format("{} is to come in {} s and not in {} s", key, secondsLeft, rule));
  }
}

void RefreshWatch::networkCameBack() {
  constexpr double kToSettle = 2.0, kLeastBetween = 30.0;
  checkReturn();  // an earlier one may have passed with nobody waiting for it
  const double settled = world_.seconds() + kToSettle;
  if (!returnDue_) returnDue_ = std::max(settled, lastReturn_.value_or(-kLeastBetween) + kLeastBetween);
}

/// Holds what waited for a connection at the last check to the network's return.
void RefreshWatch::checkReturn() {
  const double now = world_.seconds();
  const bool waiting = program_.networkReturn.isWaiting();
  if (waiting && !returnDue_) alarms_.ring(Alarm::interval, "a return of the network that there wasn't");
  if (!returnDue_ || (waiting && now < *returnDue_ + kTolerance)) return;
  if (waiting) {
    if (!overdue_) overdue_ = now;
    if (now > *overdue_ + kTolerance) alarms_.ring(Alarm::interval, "the network's return is passed over");
    return;
  }
  if (now < *returnDue_ - kTolerance) alarms_.ring(Alarm::interval, "the network's return is hurried");
  lastReturn_ = overdue_.value_or(*returnDue_);
  for (const auto& [key, watched] : watched_) {
    if (watched.waitsForConnection && std::abs(watched.lastAsked - *lastReturn_) > kTolerance)
      alarms_.ring(Alarm::interval, key + " isn't tried in time when the network is back");
  }
  returnDue_.reset();
  overdue_.reset();
}

void RefreshWatch::check(std::size_t flights) {
  checkReturn();
  DataModel& model = program_.model;
  std::size_t timers = program_.ownTimers() + flights;
  const double masterLeft = model.secondsUntilRefresh();
  checkOne("root.b1", Whose::catalogue, model.refreshState, masterLeft, false);
  timers += masterLeft != kNoTimer;
  for (const auto& rink : model.recentRinks) {
    const double left = rink->secondsUntilRefresh();
    // With an update required the rinks stand still.
    checkOne(indexKeyOf(rink->rinkID), Whose::rink, rink->refreshState, left,
             model.applicationUpdateRequired);
    timers += left != kNoTimer;
  }
  if (watched_.size() > model.recentRinks.size() + 1) {
    std::erase_if(watched_, [&](const auto& entry) {
      return entry.first != "root.b1" &&
             std::none_of(model.recentRinks.begin(), model.recentRinks.end(),
                          [&](const auto& rink) { return entry.first == indexKeyOf(rink->rinkID); });
    });
  }
  if (world_.pendingTimers() != timers) {
    alarms_.ring(Alarm::timers, fmt::format("{} timers and owners of {}", world_.pendingTimers(), timers));
  }
}

}  // namespace tarvel::sim
