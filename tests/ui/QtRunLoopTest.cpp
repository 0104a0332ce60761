#include <gtest/gtest.h>

#include <QTimer>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "LoopSupport.h"

namespace tarvel {
namespace {

using test::runUntil;
using test::runUntilIdle;

class QtRunLoopTest : public testing::Test {
 protected:
  Task note(const std::string& name) {
    return [this, name] { log_.push_back(name); };
  }
  using Log = std::vector<std::string>;

  QtRunLoop loop_;
  Log log_;
};

TEST_F(QtRunLoopTest, IdleTasksWaitForPostsThatComeMeanwhile) {
  loop_.postWhenIdle([this] {
    log_.push_back("idle 1");
    loop_.post(note("post of idle 1"));
  });
  loop_.postWhenIdle(note("idle 2"));
  loop_.post([this] {
    log_.push_back("post 1");
    loop_.post([this] {
      log_.push_back("post 2");
      loop_.post(note("post 3"));
    });
  });
  runUntilIdle(loop_);
  EXPECT_EQ(log_, (Log{"post 1", "post 2", "post 3", "idle 1", "post of idle 1", "idle 2"}));
}

TEST_F(QtRunLoopTest, ATaskThatPostsItselfLeavesRoomForOtherEvents) {
  bool ended = false;
  int turns = 0;
  std::function<void()> again = [&] {
    ++turns;
    if (!ended) loop_.post(again);
  };
  loop_.post(again);
  const auto timer = loop_.after(0.0, [&] { QTimer::singleShot(0, [&] { ended = true; }); });
  runUntilIdle(loop_);
  EXPECT_TRUE(ended);
  EXPECT_GT(turns, 0);
}

TEST_F(QtRunLoopTest, PostsOfOtherThreadsRunHereInTheOrderOfTheThread) {
  constexpr int kPosts = 1000;
  std::vector<std::vector<int>> seen(2);
  bool allHere = true;
  const auto postMany = [&](std::size_t who) {
    EXPECT_FALSE(loop_.isCurrent());
    for (int i = 0; i < kPosts; ++i) {
      loop_.post([&, who, i] {
        seen[who].push_back(i);
        allHere = allHere && loop_.isCurrent();
      });
    }
  };
  std::thread first(postMany, 0);
  std::thread second(postMany, 1);
  runUntil([&] { return seen[0].size() == kPosts && seen[1].size() == kPosts; });
  first.join();
  second.join();
  EXPECT_TRUE(allHere);
  EXPECT_TRUE(std::is_sorted(seen[0].begin(), seen[0].end()));
  EXPECT_TRUE(std::is_sorted(seen[1].begin(), seen[1].end()));
}

TEST_F(QtRunLoopTest, NothingRunsWithinATaskOrATimersActionThatEntersAnEventLoop) {
  const auto enter = [this](const std::string& name) {
    loop_.post(note("posted within " + name));
    loop_.postWhenIdle(note("idle"));
    QEventLoop inner;
    QTimer::singleShot(0, [&] { QTimer::singleShot(0, &inner, &QEventLoop::quit); });
    inner.exec();
    log_.push_back(name + " ends");
  };
  std::unique_ptr<Timer> timer;
  loop_.post([&] {
    timer = loop_.after(-1.0, [&] { enter("action"); });
    enter("task");
  });
  runUntil([this] { return log_.size() == 6; });
  const auto at = [this](const char* what) { return std::find(log_.begin(), log_.end(), what); };
  EXPECT_EQ(log_.front(), "task ends");
  EXPECT_LT(at("posted within task"), at("idle"));
  EXPECT_LT(at("action ends"), at("posted within action"));
}

TEST_F(QtRunLoopTest, TimersFireByDeadlineAndEqualOnesInOrder) {
  const auto late = loop_.after(0.004, note("late"));
  const auto soon = loop_.after(0.002, note("soon"));
  const auto due1 = loop_.after(0.0, note("due 1"));
  const auto due2 = loop_.after(-5.0, note("due 2"));
  EXPECT_TRUE(log_.empty());
  EXPECT_GT(late->secondsUntilFire(), 0.0);
  EXPECT_LE(late->secondsUntilFire(), 0.004);
  runUntil([this] { return log_.size() == 4; });
  EXPECT_EQ(log_, (Log{"due 1", "due 2", "soon", "late"}));
  EXPECT_EQ(late->secondsUntilFire(), 0.0);
}

TEST_F(QtRunLoopTest, TimersMoveEndAndAreLeftAlone) {
  std::unique_ptr<Timer> own = loop_.after(0.0, [&] {
    own.reset();
    log_.push_back("ended itself");
  });
  std::unique_ptr<Timer> victim;
  const auto killer = loop_.after(0.0, [&] {
    victim.reset();
    log_.push_back("ended another");
  });
  victim = loop_.after(0.0, note("never"));
  const auto moved = loop_.after(3600.0, note("moved nearer"));
  moved->fireAfter(0.002);
  const auto away = loop_.after(0.0, note("moved away"));
  away->fireAfter(3600.0);
  runUntil([this] { return log_.size() == 3; });
  EXPECT_EQ(log_, (Log{"ended itself", "ended another", "moved nearer"}));
  EXPECT_GT(away->secondsUntilFire(), 3500.0);
  moved->fireAfter(0.0);  // has fired for good
  EXPECT_EQ(moved->secondsUntilFire(), 0.0);
  runUntilIdle(loop_);
  EXPECT_EQ(log_.size(), 3u);
}

TEST_F(QtRunLoopTest, ARepeatingTimerMakesUpMissedFiringsByOne) {
  int firings = 0;
  const auto timer = loop_.every(0.001, 0.001, [&] { ++firings; });
  int firedInOneGo = -1;
  loop_.post([&] {
    QEventLoop busy;
    QTimer::singleShot(20, Qt::PreciseTimer, &busy, &QEventLoop::quit);
    busy.exec();
    loop_.post([&] { firedInOneGo = firings; });
  });
  runUntil([&] { return firedInOneGo >= 0; });
  EXPECT_LE(firedInOneGo, 1);
  EXPECT_GT(timer->secondsUntilFire(), -1.0);
  runUntil([&] { return firings >= 4; });
  std::unique_ptr<Timer> ending;
  ending = loop_.every(0.0, 0.001, [&] { ending.reset(); });
  runUntil([&] { return !ending; });
}

TEST(QtRunLoopEnd, DropsWhatIsQueued) {
  bool ran = false;
  auto held = std::make_shared<int>();
  const std::weak_ptr<int> watch = held;
  {
    std::optional<QtRunLoop> loop(std::in_place);
    // A dropped task may hold a timer of the loop, and post as it goes.
    std::shared_ptr<Timer> timer = loop->after(3600.0, [] {});
    loop->post([&ran, held, timer] { ran = true; });
    loop->postWhenIdle([&ran] { ran = true; });
    held.reset();
    timer.reset();
    loop.reset();
  }
  EXPECT_TRUE(watch.expired());
  QApplication::processEvents();
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace tarvel
