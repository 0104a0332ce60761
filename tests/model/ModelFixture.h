#pragma once
#include <gtest/gtest.h>

#include "model/DataModel.h"
#include "simulation/ports/SimServices.h"
#include "support/PublishedSite.h"

namespace tarvel {

using Texts = std::vector<std::string>;

/// Writes down what the model asks for, and brings nothing.
class RecordingRefresher : public MasterRefresher {
 public:
  Texts requests;

  void performRefresh() override { requests.push_back("perform"); }
  void refreshNow() override { requests.push_back("now"); }
  void scheduleNextRefresh() override { requests.push_back("schedule"); }
  void invalidateTimer() override { requests.push_back("invalidate"); }
  double secondsUntilRefresh() const override { return -1.0; }
  void checkForUpdate() override {}
  void requestDefsFile() override { requests.push_back("/defs.b1"); }
  void requestRinksFile() override { requests.push_back("/rinks.b1"); }
  void requestLogo(RinkInfo& info, LogoKind kind) override {
    requests.push_back(LogoStore::fileName(info.rinkID, kind));
  }
  std::unique_ptr<RinkRefresher> makeRinkRefresher(RinkData& rink) override;
};

class RecordingRinkRefresher : public RinkRefresher {
 public:
  RecordingRinkRefresher(Texts& requests, std::int64_t rinkID)
      : requests_(requests), rink_(std::to_string(rinkID)) {}
  void performRefresh() override { note("perform"); }
  void refreshNow() override { note("now"); }
  void scheduleNextRefresh() override { note("schedule"); }
  void invalidateTimer() override { note("invalidate"); }
  double secondsUntilRefresh() const override { return -1.0; }
  void refreshIfDue() override {}
  void requestFile(const std::string& path) override { note(path); }
  void requestSchedulesFile(Venue& venue) override { note(venue.schedulesFileName()); }
  void requestWeekFile(WeeklySchedule& schedule) override { note(schedule.fileName()); }
  void requestPhotoFile(Photo& photo, std::int64_t version) override { note(photo.fileName(version)); }

 private:
  void note(const std::string& what) { requests_.push_back(rink_ + ": " + what); }
  Texts& requests_;
  std::string rink_;
};

inline std::unique_ptr<RinkRefresher> RecordingRefresher::makeRinkRefresher(RinkData& rink) {
  return std::make_unique<RecordingRinkRefresher>(requests, rink.rinkID);
}

/// The model without the refresh engine, on simulated services. Now is Sunday, 2026-03-08, 12:00 UTC.
class ModelFixture : public testing::Test {
 protected:
  ModelFixture() {
    EXPECT_TRUE(sim.disk.createFolders(kFolder).ok());
    model.setRefresher(refresher);
  }

  void store(const std::string& name, const Bytes& content, Instant date = {1.0}) {
    EXPECT_TRUE(sim.disk.createFolders(parentOf(kFolder + "/" + name)).ok());
    EXPECT_TRUE(sim.disk.write(kFolder + "/" + name, content).ok());
    EXPECT_TRUE(sim.disk.setAttributes(kFolder + "/" + name, {date, std::nullopt}).ok());
  }
  bool exists(const std::string& name) { return sim.disk.info(kFolder + "/" + name).has_value(); }
  /// What was asked for since the last call.
  Texts taken() { return std::exchange(refresher.requests, {}); }
  Texts announced() {
    sim.world.runUntilIdle();
    const auto names = recorder.names();
    Texts texts(names.begin(), names.end());
    recorder.clear();
    return texts;
  }
  /// The rink of that id, with what the sample site publishes of it on the disk.
  std::shared_ptr<RinkData> storedRink(const PublishedRink& rink) {
    const std::string folder = "rink-" + std::to_string(rink.record.rinkID) + "/";
    store(folder + "main.b1", rink.main(), rink.mainDate.actual);
    for (const PublishedVenue& venue : rink.venues) {
      store(folder + venue.schedulesName(), PublishedRink::schedules(venue), venue.schedulesDate.actual);
      for (const PublishedWeek& week : venue.weeks)
        store(folder + venue.weekName(week), PublishedRink::week(week), week.date.actual);
    }
    const auto data = model.rinkData(rink.record.rinkID);
    data->mainFileDate = rink.mainDate.actual;
    return data;
  }

  const Path kFolder = "/home/u/Tarvel";
  SimServices sim;
  PublishedSite site = PublishedSite::sample();
  NotificationRecorder recorder{sim.notifications, sim.world};
  std::shared_ptr<MessageLog> log = MessageLog::create(sim.services, kFolder + "/log.b1", "log", 500, 0700);
  ClockTimer clock{sim.services};
  RecordingRefresher refresher;
  DataModel model{sim.services, *log, clock, kFolder, "http://catalogue.test"};
};

}  // namespace tarvel
