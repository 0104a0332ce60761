#include "reliability/StoreRun.h"

#include "app/StoreCleanup.h"
#include "platform/AtomicFile.h"

namespace tarvel::reliability {
namespace {

/// The folder stands behind every host.
constexpr const char* kServer = "http://folder.invalid";
constexpr std::int64_t kMaxErrorMessages = 500;
constexpr std::uint16_t kLogPermissions = 0700;
constexpr double kFirstRefresh = 5.0;  ///< seconds by which a start's own refreshes are over
constexpr double kAnswers = 1.0;       ///< seconds for what the folder answers at once

}  // namespace

StoreRun::StoreRun(const StoreRunOptions& options)
    : options_(options),
      world_(options.start),
      http_(files_, world_.mainLoop(), options.site, viewer::WeekFiles::delivered),
      services_{world_.mainLoop(), world_.clock(), pretendTime_, files_,        http_,
                images_,           world_,         console_,     notifications_},
      stateFile_(files_, options.store),
      log_(MessageLog::create(services_, join(options.store, "error-log.b1"), "error-log", kMaxErrorMessages,
                              kLogPermissions)),
      model_(services_, *log_, clock_, options.store, kServer) {}

void StoreRun::launch() {
  if (const Status made = createFoldersSafely(files_, options_.store); !made) {
    log_->addMessage("Can not create directory: " + options_.store + " -- " + made.error().description);
  }
  removeLeftoversOfCrash(files_, options_.store);
  for (const Path& path : clearStorePlaces(files_, options_.store)) {
    log_->addMessage("Removed from the store, as it was in the way: " + path);
  }
  const auto state = stateFile_.read();
  model_.start(state ? &*state : nullptr);
  clock_.start();
}

void StoreRun::use() {
  world_.runFor(kFirstRefresh);
  for (const std::int64_t rinkID : options_.rinks) look(rinkID);
  saveState();
  model_.refreshNow();
  world_.runFor(kAnswers);
  for (const auto& rink : model_.recentRinks) rink->refreshNow();
  world_.runFor(kAnswers);
  for (const std::int64_t rinkID : options_.rinks) look(rinkID);
}

void StoreRun::quit() {
  clock_.stopClockTimer();
  clock_.terminate();
  model_.prepareToQuit();
  saveState();
  saveLog();
  cleanUpStore(files_, options_.store, console_);
}

void StoreRun::look(std::int64_t rinkID) {
  if (!model_.rinkInfo(rinkID)) return;
  const auto rink = model_.rinkData(rinkID);
  rink->lastViewed = world_.now();
  rink->readMainFile();
  rink->refresher().refreshIfDue();
  world_.runFor(kAnswers);
  lookAtWeeks(*rink);
  lookAtPictures(*rink);
}

void StoreRun::lookAtWeeks(RinkData& rink) {
  for (const auto& venue : rink.venues) venue->readSchedulesFile();
  world_.runFor(kAnswers);
  for (const auto& venue : rink.venues) {
    if (!venue->schedulesCache) continue;
    for (const auto& week : *venue->schedulesCache) week->items();
  }
  world_.runFor(kAnswers);
}

void StoreRun::lookAtPictures(RinkData& rink) {
  rink.noticeList();
  rink.albumList();
  if (const auto info = rink.rinkInfo()) {
    info->logoImage();
    info->darkLogoImage();
  }
  world_.runFor(kAnswers);
  if (!rink.photoListCache) return;
  for (const auto& photo : *rink.photoListCache) {
    if (!photo->versions.empty()) photo->image(1);
  }
  world_.runFor(kAnswers);
}

void StoreRun::saveState() {
  PropertyList::Dictionary state;
  model_.addToState(state);
  if (const Status saved = stateFile_.write(std::move(state)); !saved) {
    log_->addMessage("Unable to save file: " + stateFile_.path() + " -- " + saved.error().description);
  }
}

void StoreRun::saveLog() {
  if (log_->logChanged && log_->save()) log_->logChanged = false;
}

std::vector<std::string> StoreRun::errors() const {
  std::vector<std::string> lines;
  const auto add = [&lines](const RefreshableProtocol& refreshable, bool mismatch) {
    const DownloadErrorKind kind = refreshable.errorKind();
    if (kind != DownloadErrorKind::noError)
      lines.push_back(refreshable.refreshName() + ": " + std::string(textOf(kind)));
    if (mismatch) lines.push_back(refreshable.refreshName() + ": date mismatch");
    if (refreshable.refreshInProgress()) lines.push_back(refreshable.refreshName() + ": not over");
  };
  add(model_, model_.refreshState.mismatchError);
  for (const auto& rink : model_.recentRinks) add(*rink, rink->refreshState.mismatchError);
  return lines;
}

}  // namespace tarvel::reliability
