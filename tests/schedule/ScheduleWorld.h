#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>
#include <string>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "simulation/ports/SimServices.h"
#include "support/RecordingSoundPlayer.h"
#include "support/RecordingWorkspace.h"

namespace tarvel::test {

/// A refresh engine that counts what it is asked for and brings nothing.
class RecordingRinkRefresher : public RinkRefresher {
 public:
  void performRefresh() override { ++refreshes; }
  void refreshNow() override { ++refreshes; }
  void scheduleNextRefresh() override {}
  void invalidateTimer() override {}
  double secondsUntilRefresh() const override { return -1.0; }
  void refreshIfDue() override { ++dueChecks; }
  void requestFile(const std::string&) override {}
  void requestSchedulesFile(Venue&) override {}
  void requestWeekFile(WeeklySchedule&) override {}
  void requestPhotoFile(Photo& photo, std::int64_t version) override {
    photoRequests.push_back(photo.fileName(version));
    photo.setDownloadStatus(DownloadStatus::requested(), version);
  }

  int refreshes = 0;
  int dueChecks = 0;
  std::vector<std::string> photoRequests;
};

class RecordingMasterRefresher : public MasterRefresher {
 public:
  void performRefresh() override { ++refreshes; }
  void refreshNow() override { ++refreshes; }
  void scheduleNextRefresh() override {}
  void invalidateTimer() override {}
  double secondsUntilRefresh() const override { return secondsToNext; }
  void checkForUpdate() override {}
  void requestDefsFile() override {}
  void requestRinksFile() override {}
  void requestLogo(RinkInfo&, LogoKind) override {}
  std::unique_ptr<RinkRefresher> makeRinkRefresher(RinkData&) override {
    return std::make_unique<RecordingRinkRefresher>();
  }

  int refreshes = 0;
  double secondsToNext = -1.0;
};

class RecordingApplication : public ApplicationProtocol {
 public:
  void markChanged() override { ++changes; }
  void removeWindowController(WindowController& controller, SaveFrame saveFrame) override {
    removed.emplace_back(&controller, saveFrame);
  }
  void tarvelURLWindow() override { ++serverAddressWindows; }

  int changes = 0;
  int serverAddressWindows = 0;
  std::vector<std::pair<WindowController*, SaveFrame>> removed;
};

/// The model and all that a window is given, over a simulated machine whose zone is UTC. It is Wednesday,
/// 2026-03-18, 10:00.
struct ScheduleWorld {
  ScheduleWorld() { dataModel.setRefresher(refresher); }

  /// A rink of the catalogue; the weeks that it offers are those from 2026-03-08 to 2026-03-29.
  std::shared_ptr<RinkInfo> addRink(std::int64_t rinkID, const std::string& name) {
    RinkListFile list;
    for (const auto& rink : dataModel.rinkList) list.rinks.push_back(*rink);
    RinkRecord record;
    record.rinkID = rinkID;
    record.name = name;
    record.timeZone = "UTC";
    list.rinks.push_back(record);
    dataModel.mergeRinkList(list);
    return dataModel.rinkInfo(rinkID);
  }
  /// Takes the rink into use, with those venues, all of whose weeks are known and at hand.
  std::shared_ptr<RinkData> openRink(std::int64_t rinkID, const std::vector<VenueRecord>& venues) {
    auto rink = dataModel.rinkData(rinkID);
    rink->mainFileRead = true;
    rink->firstWeek = packedDate(2026, 3, 8);
    rink->lastWeek = packedDate(2026, 3, 29);
    rink->mergeVenues(venues);
    for (const auto& venue : rink->venues) {
      venue->schedulesFileRead = true;
      venue->schedulesCache.emplace();
      for (PackedDate week = rink->firstWeek; week <= rink->lastWeek; week = addDays(week, 7)) {
        venue->schedulesCache->push_back(std::make_shared<WeeklySchedule>(*venue, week, kFileDate));
        venue->schedulesCache->back()->adopt({});
      }
    }
    return rink;
  }
  static VenueRecord venue(std::int64_t venueID, const std::string& name, std::int64_t displayOrder) {
    return {venueID, VenueKind::iceSheet, name, {}, displayOrder};
  }
  static RecordingRinkRefresher& refresherOf(RinkData& rink) {
    return dynamic_cast<RecordingRinkRefresher&>(rink.refresher());
  }
  void runUntilIdle() { sim.world.runUntilIdle(); }
  /// With what the toolkit has been asked for.
  void settle() {
    runUntilIdle();
    QApplication::processEvents();
  }

  static constexpr Instant kStart{795'520'800.0};  // 2026-03-18 10:00 UTC
  static constexpr Instant kFileDate{795'000'000.0};
  SimServices sim{kStart};
  std::shared_ptr<MessageLog> errorLog =
      MessageLog::create(sim.services, "/support/error-log.b1", "error-log", 500, 0700);
  ClockTimer clockTimer{sim.services};
  RecordingMasterRefresher refresher;
  RecordingApplication application;
  RecordingSoundPlayer sounds;
  RecordingWorkspace workspace;
  ObserverCensus census;
  DataModel dataModel{sim.services, *errorLog, clockTimer, "/support", "http://rinks.test"};
  WindowContext context{sim.services, dataModel, *errorLog,   clockTimer,
                        workspace,    census,    application, sounds};
};

/// A test over that world.
class ScheduleWorldTest : public testing::Test {
 protected:
  void settle() { world.settle(); }

  ScheduleWorld world;
};

}  // namespace tarvel::test
