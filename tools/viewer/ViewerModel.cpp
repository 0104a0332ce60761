#include "viewer/ViewerModel.h"

#include <fmt/format.h>
#include <stdlib.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>
#include <filesystem>

#include "publish/FieldParsers.h"

namespace tarvel::viewer {
namespace {

/// What the catalogue is asked from; the folder stands behind every host.
constexpr const char* kServer = "http://folder.invalid";
constexpr std::int64_t kMaxErrorMessages = 100;
constexpr std::uint16_t kLogPermissions = 0600;
constexpr int kMinutesPerHour = 60;
constexpr double kSecondsPerMinute = 60.0;
constexpr double kMinutesPerDay = 24.0 * 60.0;
constexpr std::int64_t kDaysToReference = kReferenceDateSince1970 / 86'400;

/// Minutes of a local time since the reference date's midnight.
double localMinutes(PackedDate date, int minute) {
  return static_cast<double>(publish::dayNumber(date) - kDaysToReference) * kMinutesPerDay + minute;
}

}  // namespace

void StandingClock::stopAt(PackedDate date, int minute, const TimeZone& zone) {
  zone_ = zone;
  const double wanted = localMinutes(date, minute);
  moment_ = {wanted * kSecondsPerMinute};
  // The zone only tells local times of instants: once more, as the first step may have crossed a change of
  // the zone's offset.
  for (int step = 0; step < 2; ++step) {
    const LocalTime local = zone.local(moment_);
    const double there = localMinutes(packedDate(local), local.hour * kMinutesPerHour + local.minute);
    moment_ = moment_ + (wanted - there) * kSecondsPerMinute;
  }
}

TemporaryStore::TemporaryStore() {
  std::string name = std::filesystem::temp_directory_path() / "tarvel-viewer-XXXXXX";
  if (::mkdtemp(name.data())) path_ = name;
}

TemporaryStore::~TemporaryStore() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
}

/// A desktop and an application in which nothing happens.
struct ViewerModel::Surroundings : Workspace, ApplicationProtocol, SoundPlayer, Console {
  bool openUrl(const std::string&) override { return false; }
  bool openLocation(double, double) override { return false; }
  std::unique_ptr<Subscription> onWake(std::function<void()>) override {
    return std::make_unique<Subscription>();
  }
  void markChanged() override {}
  void removeWindowController(WindowController&, SaveFrame) override {}
  void playSound(std::string_view) override {}
  void printLine(std::string_view) override {}
};

ViewerModel::ViewerModel(const ViewerOptions& options)
    : options_(options),
      http_(files_, mainLoop_, options.folder, options.weekFiles),
      surroundings_(std::make_unique<Surroundings>()),
      services_{mainLoop_, clock_,   pretendTime_,   files_,        http_,
                images_,   threads_, *surroundings_, notifications_},
      errorLog_(MessageLog::create(services_, join(store_.path(), "error-log.b1"), "error-log",
                                   kMaxErrorMessages, kLogPermissions)),
      dataModel_(services_, *errorLog_, clockTimer_, store_.path(), kServer),
      context_(new WindowContext{services_, dataModel_, *errorLog_, clockTimer_, *surroundings_, census_,
                                 *surroundings_, *surroundings_}) {}

ViewerModel::~ViewerModel() = default;

void ViewerModel::settle() {
  int before = -1;
  while (before != http_.answered()) {
    before = http_.answered();
    bool idle = false;
    // Twice: what runs at an idle point may have more to do at the next.
    mainLoop_.postWhenIdle([&] { mainLoop_.postWhenIdle([&idle] { idle = true; }); });
    while (!idle) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QCoreApplication::processEvents();
}

Result<std::int64_t> ViewerModel::chosenRinkID() const {
  if (dataModel_.rinkList.empty()) {
    return Error{fmt::format("--folder: \"{}\" holds no catalogue that can be read", options_.folder)};
  }
  if (!options_.rinkID) return dataModel_.rinkList.front()->rinkID;
  if (dataModel_.rinkInfo(*options_.rinkID)) return *options_.rinkID;
  std::string known;
  for (const auto& rink : dataModel_.rinkList) known += fmt::format("\n  {} {}", rink->rinkID, rink->name);
  return Error{fmt::format("--rink: there is no rink {}, but{}", *options_.rinkID, known)};
}

Status ViewerModel::checkVenues(const RinkData& rink) const {
  if (rink.venues.empty()) return Error{"the files of this rink can't be read"};
  for (const std::int64_t venueID : options_.venueIDs) {
    if (rink.venue(venueID)) continue;
    std::string known;
    for (const auto& venue : rink.venues) {
      known += fmt::format("\n  {} {}", venue->venueID, venue->displayName());
    }
    return Error{fmt::format("--venues: there is no venue {}, but{}", venueID, known)};
  }
  return Done{};
}

Result<std::shared_ptr<RinkData>> ViewerModel::openRink() {
  if (store_.path().empty()) return Error{"no temporary folder can be made"};
  clock_.stopAt(options_.today, options_.time, TimeZone::utc());
  dataModel_.start(nullptr);
  settle();
  const auto rinkID = chosenRinkID();
  if (!rinkID) return rinkID.error();
  const auto zone = TimeZone::named(dataModel_.rinkInfo(*rinkID)->timeZone);
  clock_.stopAt(options_.today, options_.time, zone.value_or(TimeZone::utc()));
  const auto rink = dataModel_.rinkData(*rinkID);
  rink->readMainFile();
  settle();
  if (const Status checked = checkVenues(*rink); !checked) return checked.error();
  return rink;
}

}  // namespace tarvel::viewer
