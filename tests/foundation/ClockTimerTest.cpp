#include "foundation/ClockTimer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "support/SimServices.h"

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

  /// The clock thread runs and has nothing to show.
  void startIdle() {
    clock->start();
    sim.world.runUntilIdle();
  }
  /// Counts the timer's firings while there is nothing to show, when a tick has nothing else for any thread
  /// to do.
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

TEST_F(ClockTimerTest, ADelegateIsToldAtOnceAndThenOnTheWholeSecond) {
  startIdle();
  clock->addTimeDelegate(first);
  clock->addTimeDelegate(first);
  EXPECT_TRUE(first.told.empty()) << "not within the call";
  sim.world.runFor(2.7);
  EXPECT_EQ(first.told, (Times{0, 1, 2, 3}));
  expectTimes(first.at, {0.4, 1, 2, 3});
  EXPECT_EQ(sim.world.threadNames(), std::vector<std::string>{"Clock Update Thread"});
}

TEST_F(ClockTimerTest, AFaceHasTheTimeBeforeItIsShownAndTheCurrentSecondRightAfter) {
  startIdle();
  sim.pretendTime.setOffset(100);
  clock->addClockFace(first);
  expectTimes(first.told, {100.4});
  sim.world.runUntilIdle();
  expectTimes(first.told, {100.4, 100});
  clock->addClockFace(first);
  EXPECT_EQ(first.told.size(), 2U);
}

TEST_F(ClockTimerTest, TheRateFollowsTheDisplays) {
  EXPECT_EQ(clock->clockUpdateInterval(), 60.0);
  startIdle();
  EXPECT_EQ(firingsWithin(59.5), 0U);  // to 12:00:59.9
  EXPECT_EQ(firingsWithin(0.2), 1U);   // the minute
  EXPECT_EQ(firingsWithin(120), 2U);
  clock->addTimeDelegate(first);
  clock->addClockFace(second);
  EXPECT_EQ(clock->clockUpdateInterval(), 1.0);
  clock->removeTimeDelegate(first);
  clock->removeTimeDelegate(second);  // it is a face
  EXPECT_EQ(clock->clockUpdateInterval(), 1.0);
  sim.world.runFor(3);
  clock->removeClockFace(second);
  EXPECT_EQ(clock->clockUpdateInterval(), 60.0);
  sim.world.runUntilIdle();
  const std::size_t told = second.told.size();
  EXPECT_EQ(firingsWithin(56.8), 0U);  // from 12:03:03.1
  EXPECT_EQ(firingsWithin(0.2), 1U);
  EXPECT_EQ(second.told.size(), told);
}

TEST_F(ClockTimerTest, FacesComeBeforeDelegatesEachInTheirOrder) {
  startIdle();
  Display third{*this};
  clock->addTimeDelegate(third);
  clock->addClockFace(second);
  clock->addClockFace(first);
  sim.world.runUntilIdle();
  order.clear();
  clock->tick();
  sim.world.runUntilIdle();
  EXPECT_EQ(order, (std::vector<const Display*>{&second, &first, &third}));
}

TEST_F(ClockTimerTest, PretendTimeIsRoundedAwayFromZeroAndDoesNotMoveTheTicks) {
  startIdle();
  sim.pretendTime.setOffset(-90.5);
  clock->addTimeDelegate(first);
  sim.world.runFor(2);
  EXPECT_EQ(first.told, (Times{-90, -89, -88}));
  expectTimes(first.at, {0.4, 1, 2});
}

TEST_F(ClockTimerTest, DisplaysMayComeAndGoWhileTheyAreTold) {
  startIdle();
  Display third{*this};
  clock->addClockFace(first);
  clock->addTimeDelegate(second);
  clock->addTimeDelegate(third);
  sim.world.runUntilIdle();
  order.clear();
  Display late{*this};
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
      EXPECT_NEAR(first.at[i], std::round(first.at[i]), 1e-5);
      EXPECT_EQ(first.told[i], std::round(first.at[i]));
      if (i > 1) {
        EXPECT_EQ(first.told[i], first.told[i - 1] + 1);
      }
    }
  }
}

TEST_F(ClockTimerTest, TheMinuteIsFoundAgainAfterTheWallClockWasSet) {
  startIdle();
  sim.world.runFor(60);  // 12:01:00.4
  sim.world.stepWall(17);
  EXPECT_EQ(firingsWithin(59.7), 1U);  // what would have been 12:02:00 is 12:02:17
  EXPECT_EQ(firingsWithin(42.8), 0U);
  EXPECT_EQ(firingsWithin(0.2), 1U);  // 12:03:00
  EXPECT_EQ(firingsWithin(60), 1U);
}

TEST_F(ClockTimerTest, StartingAgainTicksAtOnceAndKeepsOneTimer) {
  startIdle();
  clock->addTimeDelegate(first);
  sim.world.runFor(1);
  first.at.clear();
  clock->start();
  sim.world.runFor(2);
  expectTimes(first.at, {1.4, 2, 3});
}

TEST_F(ClockTimerTest, NothingTicksOnceItIsStoppedAndTerminated) {
  clock->terminate();  // before any start: nothing to end
  startIdle();
  clock->addTimeDelegate(first);
  sim.world.runFor(5);
  clock->stopClockTimer();
  sim.world.runUntilIdle();
  EXPECT_EQ(sim.world.pendingTimers(), 1U);
  clock->terminate();
  clock->addClockFace(second);  // a late change makes no new timer
  clock->removeClockFace(second);
  clock->removeTimeDelegate(first);
  sim.world.runUntilIdle();
  EXPECT_EQ(sim.world.pendingTimers(), 0U);
  first.at.clear();
  sim.world.runFor(100'000);
  EXPECT_TRUE(first.at.empty());
  clock->addTimeDelegate(first);
  startIdle();
  sim.world.runFor(0.5);
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

}  // namespace
}  // namespace tarvel
