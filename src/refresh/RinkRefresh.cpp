#include "refresh/RinkRefresh.h"

#include "foundation/TextFormats.h"
#include "model/FileNames.h"
#include "refresh/NextRefresh.h"

/// The cycle of a rink's refresh and its requests; what the files bring about stands in RinkFileHandlers.cpp.
namespace tarvel {

namespace {

/// Both sides with a separator between them, which is left out if either is empty.
std::string joinNotEmpty(const std::string& a, const std::string& b) {
  return a.empty() || b.empty() ? a + b : a + "/" + b;
}

}  // namespace

RinkRefresh::RinkRefresh(const Services& services, DownloadManager& downloads, DataModel& model,
                         RinkData& rink)
    : RefreshCycle(services, downloads, model.messageLog(), rink.refreshState, ArmOnTrouble::no),
      model_(model),
      rink_(rink) {}

void RinkRefresh::performRefresh() {
  if (model_.applicationUpdateRequired) return;
  if (!begin("----- performRefresh for " + rink_.refreshName())) return;
  requestMasterFile();
  endIfNothingRequested();
}

void RinkRefresh::refreshNow() {
  dropTimer();
  performRefresh();
}

void RinkRefresh::refreshIfDue() {
  const auto& last = state_.lastRefreshTimeStamp;
  const bool due = state_.errorKind != DownloadErrorKind::noError || !last ||
                   services_.clock.now() - *last >= kRinkRefreshInterval;
  if (due) performRefresh();
}

void RinkRefresh::armNextRefresh() {
  const Instant now = services_.clock.now();
  const double seconds = secondsToRefresh(nextRinkRefresh(state_, model_.refreshState.errorKind, now), now,
                                          kRinkRefreshInterval);
  armTimer(seconds, [this] { performRefresh(); });
  announceStatus();
  services_.console.printLine("next refresh for " + rink_.refreshName() + " in " + intervalText(seconds));
}

void RinkRefresh::announceStatus() {
  rink_.postNotification(kRefreshStatusChanged);
}

bool RinkRefresh::requestRinkFile(const std::string& path, Handler handler, FailureHandler onFailure) {
  const std::shared_ptr<RinkInfo> info = rink_.rinkInfo();
  if (!info) return false;  // a rink that has left the catalogue has no server
  return request(joinNotEmpty(info->serverUrl, info->dataPath) + path, std::move(handler),
                 std::move(onFailure));
}

void RinkRefresh::requestMasterFile() {
  services_.console.printLine("requestMasterFile on " + dateText(services_.clock.now()));
  requestRinkFile("/master.b1", [this](ByteView body) { masterFileReceived(body); });
}

void RinkRefresh::requestFile(const std::string& path) {
  if (path == "/" + std::string(kMainFileName)) {
    requestRinkFile(path, [this](ByteView body) { mainFileReceived(body); });
  } else if (path == "/" + std::string(kNoticesFileName)) {
    requestRinkFile(path, [this](ByteView body) { noticesFileReceived(body); });
  } else if (path == "/" + std::string(kPhotoCollectionFileName)) {
    requestRinkFile(path, [this](ByteView body) { photoCollectionFileReceived(body); });
  }
}

void RinkRefresh::requestSchedulesFile(Venue& venue) {
  requestRinkFile("/" + venue.schedulesFileName(), [this, weak = venue.weak_from_this()](ByteView body) {
    // A venue that has gone meanwhile needs its file no more.
    if (const std::shared_ptr<Venue> kept = weak.lock()) schedulesFileReceived(*kept, body);
  });
}

void RinkRefresh::requestWeekFile(WeeklySchedule& schedule) {
  const std::weak_ptr<WeeklySchedule> weak = schedule.weak_from_this();
  const bool added = requestRinkFile(
      "/" + schedule.fileName(),
      [this, weak](ByteView body) {
        if (const std::shared_ptr<WeeklySchedule> kept = weak.lock()) weekFileReceived(*kept, body);
      },
      [weak](const std::string& description) {
        if (const auto kept = weak.lock()) kept->setDownloadStatus(DownloadStatus::failed(description));
      });
  if (added) schedule.setDownloadStatus(DownloadStatus::requested());
}

}  // namespace tarvel
