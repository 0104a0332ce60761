#include "refresh/MasterRefresh.h"

#include "foundation/TextFormats.h"
#include "model/FileNames.h"
#include "model/StoredFile.h"
#include "refresh/NextRefresh.h"
#include "refresh/RinkRefresh.h"

namespace tarvel {

namespace {
std::string bytesText(ByteView body) {
  return groupedNumber(static_cast<std::int64_t>(body.size())) + " bytes";
}
}  // namespace

MasterRefresh::MasterRefresh(const Services& services, DataModel& model)
    : RefreshCycle(services, downloads_, model.messageLog(), model.refreshState, ArmOnTrouble::yes),
      model_(model),
      downloads_(services) {
  model.setRefresher(*this);
}

std::string MasterRefresh::url(std::string_view path) const {
  return (state_.refreshInProgress ? cycleServerURL_ : model_.tarvelServerURL) + std::string(path);
}

void MasterRefresh::performRefresh() {
  // A manual flag that the caller set holds for the cycle that runs already.
  if (!begin("----- performRefresh for master data")) return;
  cycleServerURL_ = model_.tarvelServerURL;
  request(url("/root.b1"), [this](ByteView body) { rootFileReceived(body); });
}

void MasterRefresh::refreshNow() {
  dropTimer();
  model_.isManualRefresh = true;
  performRefresh();
}

void MasterRefresh::checkForUpdate() {
  model_.isCheckForAppUpdate = true;
  refreshNow();
}

void MasterRefresh::masterRefresh() {
  services_.console.printLine("Begin master refresh (user request)");
  performRefresh();
}

void MasterRefresh::rootFileReceived(ByteView body) {
  services_.console.printLine("received root file  " + bytesText(body));
  const RootFile root = decodeRootFile(body);
  // A text that the state file can't hold is no address, and would keep the whole state from being saved.
  const bool storable = PropertyList(root.applicationWebsiteURL).xml().ok();
  model_.applicationWebsiteURL = storable ? root.applicationWebsiteURL : "";
  takeUpdateDecision(root);
  const auto follow = [&](const MasterFileInfo& info, std::string_view name,
                          std::optional<Instant>& promise) {
    if (info.relPath != name) return false;
    promise = info.modDate;
    return storedDate(services_.files, join(model_.supportFolder(), name)) != promise;
  };
  for (const MasterFileInfo& info : root.files) {
    // With an update required the data on the server is for a newer application.
    if (model_.applicationUpdateRequired) break;
    if (follow(info, kDefsFileName, model_.defsFileDate)) requestDefsFile();
    if (follow(info, kRinksFileName, model_.rinksFileDate)) requestRinksFile();
  }
  model_.isManualRefresh = false;
  model_.isCheckForAppUpdate = false;
}

void MasterRefresh::takeUpdateDecision(const RootFile& root) {
  const bool wasRequired = model_.applicationUpdateRequired;
  if (decideUpdate) decideUpdate(root);
  if (!wasRequired || model_.applicationUpdateRequired) return;
  // The rinks stood still meanwhile, without a timer.
  for (const auto& rink : model_.recentRinks) rink->refresher().scheduleNextRefresh();
}

void MasterRefresh::requestDefsFile() {
  request(url("/defs.b1"), [this](ByteView body) { defsFileReceived(body); });
}

void MasterRefresh::requestRinksFile() {
  request(url("/rinks.b1"), [this](ByteView body) { rinksFileReceived(body); });
}

void MasterRefresh::defsFileReceived(ByteView body) {
  services_.console.printLine("received defs file  " + bytesText(body));
  const DefsFile file = decodeDefsFile(body);
  storeFile(services_, model_.messageLog(), body, std::string(kDefsFileName), model_.supportFolder(),
            file.fileDate);
  model_.adoptDefs(file);
  checkPromise(model_.defsFileDate, file.fileDate, kDefsFileName);
}

void MasterRefresh::rinksFileReceived(ByteView body) {
  services_.console.printLine("received rink list file  " + bytesText(body));
  RinkListUpdate update = model_.rinkListUpdate(body);
  const Instant fileDate = update.fileDate;
  storeFile(services_, model_.messageLog(), body, std::string(kRinksFileName), model_.supportFolder(),
            fileDate);
  model_.mergeRinkList(std::move(update));
  checkPromise(model_.rinksFileDate, fileDate, kRinksFileName);
}

void MasterRefresh::checkPromise(std::optional<Instant> promised, Instant received,
                                 std::string_view fileName) {
  if (!promised || *promised == received) return;
  reportMismatch("date mismatch for " + std::string(fileName) + "    modified  " + dateText(received) +
                 "    expected  " + dateText(promised));
}

void MasterRefresh::requestLogo(RinkInfo& rinkInfo, LogoKind kind) {
  const std::int64_t rinkID = rinkInfo.rinkID;
  request(url("/logos/" + LogoStore::fileName(rinkID, kind)), [this, rinkID, kind](ByteView body) {
    // The rink may have left the catalogue meanwhile.
    if (const auto info = model_.rinkInfo(rinkID)) model_.logos().receive(*info, kind, body);
  });
}

std::unique_ptr<RinkRefresher> MasterRefresh::makeRinkRefresher(RinkData& rinkData) {
  return std::make_unique<RinkRefresh>(services_, downloads_, model_, rinkData);
}

void MasterRefresh::armNextRefresh() {
  const Instant now = services_.clock.now();
  const AtLaunch atLaunch = model_.appIsLaunching ? AtLaunch::yes : AtLaunch::no;
  const double seconds =
      secondsToRefresh(nextMasterRefresh(state_, model_.applicationUpdateRequired, atLaunch, now), now,
                       kMasterRefreshInterval);
  armTimer(seconds, [this] { performRefresh(); });
  announceStatus();
  services_.console.printLine("next master refresh in " + intervalText(seconds));
}

void MasterRefresh::announceStatus() {
  model_.postNotification(kRefreshStatusChanged);
}

}  // namespace tarvel
