#include "EngineFixture.h"

namespace tarvel {
namespace {

constexpr double kDay = 86'400.0;

class LongRunTest : public EngineFixture {
 protected:
  /// A day with the clock's ticks once an hour.
  void runADay() {
    for (int hour = 0; hour < 24; ++hour) {
      sim.world.runFor(3'600.0);
      engine->clock.tick();
    }
  }
  std::size_t count(const std::string& url) { return sim.http.requestCount(url); }
  const std::string root = site.server + "/root.b1", master = site.rinks[0].url("master.b1");
};

TEST_F(LongRunTest, ThirtyDaysOnAnUnchangedServerCostTheIndexesAndEachNextWeekOnce) {
  startWithCatalogue();
  RinkData& rink = show(7);
  sim.http.clearRequests();
  std::vector<std::uint64_t> tasks;
  for (int day = 0; day < 30; ++day) {
    const std::uint64_t before = sim.world.tasksRun();
    runADay();
    tasks.push_back(sim.world.tasksRun() - before);
    EXPECT_EQ(sim.world.pendingTimers(), 3U) << "the catalogue's, the rink's and the memory's";
    EXPECT_EQ(sim.world.mainLoop().queuedTasks(), 1U) << "the last tick";
  }
  EXPECT_EQ(count(root), 15U) << "every other day";
  EXPECT_EQ(count(master), 180U) << "six a day";
  EXPECT_EQ(count(site.rinks[0].url("venue-1_week-2026-03-22.b1")), 1U) << "when it became the next week";
  EXPECT_EQ(sim.http.requests().size(), 15U + 180U + 2U);
  EXPECT_EQ(tasks[28], tasks[26]);
  EXPECT_EQ(tasks[29], tasks[27]);
  EXPECT_EQ(rink.dateNow(), packedDate(2026, 4, 7));
  EXPECT_TRUE(engine->log->logMessages().empty());
}

TEST_F(LongRunTest, OldWeeksLeaveWithTheNextReadOfTheHeader) {
  startWithCatalogue();
  RinkData& rink = show(7);
  for (int day = 0; day < 8; ++day) runADay();
  EXPECT_EQ(rink.firstWeek, kLastWeek) << "the range moves with main.b1 alone";
  site.rinks[0].mainDate.publishAnew();
  runADay();
  EXPECT_EQ(rink.firstWeek, kThisWeek);
  for (int day = 0; day < 7; ++day) runADay();
  restart();
  EXPECT_EQ(model().recentRinks[0]->firstWeek, kNextWeek) << "and at a launch";
  show(7);
  refresh(*model().recentRinks[0]);
  EXPECT_FALSE(stored("rink-7/venue-1_week-2026-03-08.b1"));
  EXPECT_TRUE(stored("rink-7/venue-1_week-2026-03-15.b1"));
}

TEST_F(LongRunTest, AWallClockSetBackOrForthDelaysAndDoublesNothing) {
  startWithCatalogue();
  RinkData& rink = show(7);
  for (const double step : {-365 * kDay, 365 * kDay, -0.5 * kDay, 10 * kDay}) {
    sim.http.clearRequests();
    sim.world.stepWall(step);
    for (int day = 0; day < 4; ++day) runADay();
    EXPECT_EQ(count(root), 2U) << step;
    EXPECT_EQ(count(master), 24U) << step;
    EXPECT_LE(rink.secondsUntilRefresh(), 14'400.0);
  }
}

TEST_F(LongRunTest, WeeksThatAClockAheadHasTakenComeBackWithIt) {
  startWithCatalogue();
  RinkData& rink = show(7);
  for (const bool newsAfterwards : {false, true}) {
    SCOPED_TRACE(newsAfterwards);
    sim.world.stepWall(60 * kDay);
    engine->clock.tick();
    sim.world.runFor(0);
    site.rinks[0].mainDate.publishAnew();
    refresh(rink);
    EXPECT_FALSE(rink.venues[0]->weeklySchedule(kThisWeek)) << "it is over";
    sim.world.stepWall(-60 * kDay);
    engine->clock.tick();
    sim.world.runFor(0);
    if (newsAfterwards) site.rinks[0].mainDate.publishAnew();
    refresh(rink);
    EXPECT_EQ(rink.firstWeek, kLastWeek);
    ASSERT_TRUE(rink.venues[0]->weeklySchedule(kThisWeek));
    EXPECT_TRUE(rink.venues[0]->weeklySchedule(kThisWeek)->items());
  }
}

TEST_F(LongRunTest, AHeaderThatCouldNotBeReadOnceComesWithTheNextRefresh) {
  startWithCatalogue();
  show(7);
  restart();
  const auto rink = model().rinkData(7);
  sim.http.fail(site.rinks[0].url("main.b1"), "Connection refused");
  sim.disk.failOperation(1, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::read, "main.b1"});
  rink->readMainFile();
  sim.world.runFor(0);
  EXPECT_TRUE(rink->venues.empty());
  sim.http.forget(site.rinks[0].url("main.b1"));
  refresh(*rink);
  EXPECT_EQ(rink->venues.size(), 2U);
}

TEST_F(LongRunTest, AWeekThatWasListedBeforeTheRangeReachedItIsOfferedAfterwards) {
  startWithCatalogue();
  site.rinks[0].lastWeek = kNextWeek;
  site.rinks[0].mainDate.publishAnew();
  RinkData& rink = show(7);
  refresh(rink);
  EXPECT_FALSE(rink.venues[0]->weeklySchedule(kLaterWeek));
  site.rinks[0].lastWeek = kLaterWeek;
  site.rinks[0].mainDate.publishAnew();
  refresh(rink);
  EXPECT_TRUE(rink.venues[0]->weeklySchedule(kLaterWeek));
}

TEST_F(LongRunTest, ASleepIsMadeUpByOneRefreshEach) {
  startWithCatalogue();
  show(7);
  sim.http.clearRequests();
  sim.world.sleepMachine(20 * kDay);
  sim.world.runFor(10);
  EXPECT_EQ(count(root), 1U);
  EXPECT_EQ(count(master), 1U);
}

}  // namespace
}  // namespace tarvel
