#include "refresh/NetworkReturn.h"

#include <algorithm>

namespace tarvel {

namespace {

constexpr double kSecondsToSettle = 2.0;
constexpr double kLeastSecondsBetweenTries = 30.0;

/// Waiting for its next turn after a failed connection. (While an update is required, a rink's refresh does
/// nothing.)
bool waitsForConnection(const RefreshableProtocol& refreshable) {
  return refreshable.errorKind() == DownloadErrorKind::connectionError &&
         refreshable.secondsUntilRefresh() >= 0.0 && !refreshable.refreshInProgress();
}

}  // namespace

NetworkReturn::NetworkReturn(const Services& services, DataModel& model)
    : services_(services), model_(model) {}

void NetworkReturn::networkCameBack() {
  if (timer_) return;
  double wait = kSecondsToSettle;
  if (lastTry_) {
    wait = std::max(wait, *lastTry_ + kLeastSecondsBetweenTries - services_.clock.monotonicSeconds());
  }
  timer_ = services_.mainLoop.after(wait, [this] { tryAgain(); });
}

void NetworkReturn::tryAgain() {
  timer_ = nullptr;
  lastTry_ = services_.clock.monotonicSeconds();
  services_.console.printLine("the network is back");
  if (waitsForConnection(model_)) model_.refresher().performRefresh();
  for (const auto& rink : model_.recentRinks) {
    if (waitsForConnection(*rink)) rink->refresher().performRefresh();
  }
}

}  // namespace tarvel
