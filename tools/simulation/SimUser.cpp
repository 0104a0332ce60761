#include "simulation/SimUser.h"

#include <algorithm>

#include "simulation/StoredFiles.h"

namespace tarvel::sim {

namespace {
constexpr std::int64_t kDaysPerWeek = 7;
}

SimUser::SimUser(SimProgram& program, const Services& services, ShownWatch& shown, SeededRandom& random)
    : program_(program), shown_(shown), random_(random), photos_(services.clock) {}

std::shared_ptr<RinkData> SimUser::rinkInView() const {
  const auto& rinks = program_.model.recentRinks;
  const auto found =
      std::find_if(rinks.begin(), rinks.end(), [&](const auto& rink) { return rink->rinkID == inView_; });
  return found == rinks.end() ? nullptr : *found;
}

void SimUser::askForWeeks(RinkData& rink, std::int64_t weeks) {
  const PackedDate thisWeek = startOfWeek(rink.dateNow());
  for (const auto& venue : std::vector(rink.venues)) {
    for (std::int64_t i = 0; i < weeks; ++i) {
      const auto schedule = venue->weeklySchedule(addDays(thisWeek, i * kDaysPerWeek));
      if (schedule) schedule->items();
    }
  }
}

void SimUser::showPhotos(RinkData& rink) {
  rink.albumList();
  PhotoList photos = rink.photoListCache.value_or(PhotoList{});
  photos_.setPhotos(photos);
  photos_.setShown(true);
  for (const auto& photo : photos) {
    if (!photo->versions.empty())
      photo->image(1 + static_cast<std::int64_t>(random_.below(photo->versions.size())));
  }
}

void SimUser::look(std::int64_t rinkID) {
  const auto rink = program_.model.rinkData(rinkID);
  inView_ = rinkID;
  weeksInView_ = 1 + static_cast<std::int64_t>(random_.below(4));
  rink->lastViewed = rink->services().clock.now();
  rink->readMainFile();
  rink->refresher().refreshIfDue();
  program_.model.noteStateChanged();
  askForWeeks(*rink, weeksInView_);
  if (const auto info = rink->rinkInfo(); info && random_.chance(0.5)) info->logoImage();
  if (random_.chance(0.6)) rink->noticeList();
  if (random_.chance(0.3)) {
    showPhotos(*rink);
  } else {
    photos_.setShown(false);
  }
  shown_.noteShown(*rink);
}

void SimUser::lookAgain() {
  const auto rink = rinkInView();
  if (!rink) return;
  askForWeeks(*rink, weeksInView_);
  shown_.noteShown(*rink);
}

void SimUser::lookAround() {
  const auto& recent = program_.model.recentRinks;
  const auto& all = program_.model.rinkList;
  const bool known = !recent.empty() && random_.chance(0.8);
  const std::uint64_t draw = random_.next();
  if (known) {
    look(recent[draw % recent.size()]->rinkID);
  } else if (!all.empty()) {
    look(all[draw % all.size()]->rinkID);
  }
}

void SimUser::act() {
  const auto rink = rinkInView();
  switch (random_.below(6)) {
    case 0:
      return program_.master.masterRefresh();
    case 1:
      return program_.model.refreshNow();
    case 2:
      return program_.model.freeMemory();
    case 3:
      if (rink && rink->noticesCache && !rink->noticesCache->empty()) {
        rink->dismissNotice(rink->noticesCache->front()->noticeID);
        program_.model.noteStateChanged();
      }
      return;
    case 4:
      return program_.master.checkForUpdate();
    default:
      if (rink) rink->refreshNow();
  }
}

void SimUser::moveServer() {
  program_.model.setServerURL(catalogueServer(program_.model.tarvelServerURL == catalogueServer(false)));
}

}  // namespace tarvel::sim
