#include <gtest/gtest.h>

#include <utility>

#include "foundation/ClockTimer.h"
#include "platform/posix/PosixRunLoop.h"
#include "platform/posix/PosixThreads.h"
#include "simulation/ports/SimServices.h"

namespace tarvel {
namespace {

constexpr double kNoon = 794'664'000.0;  // 2026-03-08 12:00 UTC

class ClockTimerTest : public testing::Test {
 protected:
  /// A display of either kind that notes what it is told, and when by the wall clock.
  struct Display : ClockFace, TimeDelegateProtocol {
    explicit Display(ClockTimerTest& owner) : test(owner) {}
    void setDateValue(Instant now) override { note(now); }
    void updateTimeWithNow(Instant now) override { note(now); }
    void note(Instant now) {
      EXPECT_TRUE(test.sim.world.mainLoop().isCurrent());
      told.push_back(now.seconds - kNoon);
      at.push_back(test.sim.world.now().seconds - kNoon);
      test.order.push_back(this);
      if (const Task once = std::exchange(action, {})) once();
    }
    ClockTimerTest& test;
    std::vector<double> told;
    std::vector<double> at;
    Task action;  ///< runs at the next telling alone
  };

  void startIdle() {
    clock->start();
    sim.world.runUntilIdle();
  }
  /// The timer's firings while there is nothing to show, when no thread has anything else to do.
  std::uint64_t firingsWithin(double seconds) {
    const std::uint64_t before = sim.world.tasksRun();
    sim.world.runFor(seconds);
    return sim.world.tasksRun() - before;
  }

  SimServices sim{Instant{kNoon + 0.4}};
  std::vector<const Display*> order;
  Display first{*this};
  Display second{*this};
  std::unique_ptr<ClockTimer> clock = std::make_unique<ClockTimer>(sim.services);
};

using Times = std::vector<double>;

void expectTimes(const Times& times, const Times& expected) {
  ASSERT_EQ(times.size(), expected.size()) << testing::PrintToString(times);
  for (std::size_t i = 0; i < times.size(); ++i) EXPECT_NEAR(times[i], expected[i], 1e-5);
}

TEST_F(ClockTimerTest, ADelegateIsToldAtOnceAndThenOnTheWholeSecondOfTheClock) {
  startIdle();
  sim.pretendTime.setOffset(-90.5);
  clock->addTimeDelegate(first);
  clock->addTimeDelegate(first);
  EXPECT_TRUE(first.told.empty()) << "not within the call";
  sim.world.runFor(2);
  EXPECT_EQ(first.told, (Times{-90, -89, -88})) << "pretend time is rounded away from zero";
  expectTimes(first.at, {0.4, 1, 2});
}

TEST_F(ClockTimerTest, AFaceHasTheTimeBeforeItIsShownAndTheCurrentSecondRightAfter) {
  startIdle();
  clock->addClockFace(first);
  expectTimes(first.told, {0.4});
  sim.world.runUntilIdle();
  expectTimes(first.told, {0.4, 0});
}

TEST_F(ClockTimerTest, TheRateFollowsTheDisplays) {
  startIdle();
  EXPECT_EQ(firingsWithin(59.5), 0U);  // to 12:00:59.9
  EXPECT_EQ(firingsWithin(0.2), 1U);   // the minute
  EXPECT_EQ(firingsWithin(120), 2U);
  clock->addTimeDelegate(first);
  clock->addClockFace(second);
  clock->removeTimeDelegate(first);
  clock->removeTimeDelegate(second);  // it is a face
  EXPECT_EQ(clock->clockUpdateInterval(), 1.0);
  sim.world.runFor(3);
  clock->removeClockFace(second);
  sim.world.runUntilIdle();
  EXPECT_EQ(clock->clockUpdateInterval(), 60.0);
  EXPECT_EQ(firingsWithin(56.8), 0U);  // from 12:03:03.1
  EXPECT_EQ(firingsWithin(0.2), 1U);
}

TEST_F(ClockTimerTest, FacesComeFirstAndDisplaysMayComeAndGoWhileTheyAreTold) {
  startIdle();
  Display third{*this};
  Display late{*this};
  clock->addTimeDelegate(second);
  clock->addTimeDelegate(third);
  clock->addClockFace(first);
  sim.world.runUntilIdle();
  order.clear();
  first.action = [&] { clock->removeClockFace(first); };
  second.action = [&] {
    clock->addTimeDelegate(late);
    clock->removeTimeDelegate(second);
    clock->removeTimeDelegate(third);
  };
  clock->tick();
  clock->tick();
  sim.world.runUntilIdle();
  EXPECT_EQ(order, (std::vector<const Display*>{&first, &second, &late}));
  clock->removeTimeDelegate(late);
}

TEST_F(ClockTimerTest, TicksAreAlignedAgainAfterTheWallClockWasSetOrTheMachineSlept) {
  startIdle();
  clock->addTimeDelegate(first);
  const Task disturbances[] = {[this] { sim.world.stepWall(1000.3); },
                               [this] { sim.world.stepWall(-5000.2); },
                               [this] { sim.world.sleepMachine(3600.3); }};
  for (const Task& disturb : disturbances) {
    sim.world.runFor(5);
    disturb();
    first.at.clear();
    first.told.clear();
    sim.world.runFor(10.5);
    // One tick out of step, by which the change is found; then one for each second.
    ASSERT_GE(first.at.size(), 10U);
    for (std::size_t i = 1; i < first.at.size(); ++i) {
      EXPECT_NEAR(first.at[i], first.told[i], 1e-5);
      EXPECT_EQ(first.told[i], first.told[1] + static_cast<double>(i - 1));
    }
  }
}

TEST_F(ClockTimerTest, NothingTicksOnceItIsTerminatedUntilItIsStartedAgain) {
  clock->terminate();  // before any start: nothing to end
  startIdle();
  clock->addTimeDelegate(first);
  sim.world.runFor(5);
  clock->terminate();
  clock->addClockFace(second);  // a late change makes no new timer
  clock->removeClockFace(second);
  sim.world.runUntilIdle();
  EXPECT_EQ(sim.world.pendingTimers(), 0U);
  first.at.clear();
  sim.world.runFor(100'000);
  EXPECT_TRUE(first.at.empty());
  startIdle();
  sim.world.runFor(1);
  EXPECT_FALSE(first.at.empty()) << "a new thread after the old one has ended";
}

TEST_F(ClockTimerTest, ATickUnderWayReachesNobodyOnceTheClockIsGone) {
  startIdle();
  clock->addTimeDelegate(first);
  sim.world.runUntilIdle();
  first.at.clear();
  clock->tick();
  clock.reset();
  sim.world.runFor(100);
  EXPECT_TRUE(first.at.empty());
  EXPECT_EQ(sim.world.pendingTimers(), 0U);
}

struct CountingDelegate : TimeDelegateProtocol {
  void updateTimeWithNow(Instant) override { ++ticks; }
  int ticks = 0;
};

// The clock on a thread of its own, for what only a real thread shows. Time stands still at a whole second,
// so the timer is due whenever it is made, and nothing here waits for time to pass.
TEST(ClockTimerThread, StartsTicksAndEndsWhileDisplaysComeAndGo) {
  SimServices sim;
  PosixRunLoop mainLoop;
  mainLoop.bindToCurrentThread();
  PosixThreads threads;
  const Services services{mainLoop,   sim.world.clock(), sim.pretendTime, sim.disk,         sim.http,
                          sim.images, threads,           sim.console,     sim.notifications};
  enum class Ending { terminated, stoppedAndTerminated, destroyed };
  for (const Ending ending : {Ending::terminated, Ending::stoppedAndTerminated, Ending::destroyed}) {
    ClockTimer clock(services);
    CountingDelegate delegate;
    clock.start();
    for (int round = 0; round < 50; ++round) {
      clock.addTimeDelegate(delegate);
      clock.start();
      const int before = delegate.ticks;
      while (delegate.ticks == before) mainLoop.runPass();
      sim.pretendTime.setOffset(round);
      clock.removeTimeDelegate(delegate);
    }
    clock.addTimeDelegate(delegate);
    if (ending == Ending::stoppedAndTerminated) clock.stopClockTimer();
    if (ending != Ending::destroyed) clock.terminate();
    clock.removeTimeDelegate(delegate);
  }
}

}  // namespace
}  // namespace tarvel
