#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <future>
#include <string>
#include <thread>

#include "platform/Threads.h"
#include "platform/TimerQueue.h"
#include "platform/posix/PosixThreads.h"
#include "platform/posix/ServiceWatchdog.h"
#include "simulation/ports/SimWorld.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

constexpr double kFarAway = 1'000'000.0;

/// What every kind of thread promises, whether it is the machine's or the tests' own.
class ThreadsContract : public testing::TestWithParam<bool> {
 protected:
  bool real() const { return GetParam(); }
  std::unique_ptr<LoopThread> start(
      std::function<void(RunLoop&)> main, std::function<bool()> keepRunning = [] { return true; }) {
    Threads& threads = real() ? static_cast<Threads&>(posix_) : world_;
    return threads.start("A thread of tests", std::move(main), std::move(keepRunning));
  }
  /// Lets threads and time go on until another thread has made the promise true.
  void waitFor(std::promise<void>& promise) {
    std::future<void> future = promise.get_future();
    const auto ready = [&] { return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
    if (real()) {
      future.wait();
    } else {
      EXPECT_TRUE(world_.runUntil(ready, 2 * kFarAway));
    }
  }
  void waitForEnd(LoopThread& thread) {
    while (!thread.ended()) thread.postAndWait([] {});
  }

  SimWorld world_;
  PosixThreads posix_;
};

INSTANTIATE_TEST_SUITE_P(, ThreadsContract, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "real" : "simulated"; });

TEST_P(ThreadsContract, RunsTasksInOrderOnItsOwnThread) {
  RunLoop* loop = nullptr;
  std::unique_ptr<Timer> timer;
  std::string order;
  std::promise<void> idle;
  const auto thread = start([&](RunLoop& own) {
    loop = &own;
    timer = own.after(kFarAway, [] {});
    own.postWhenIdle([&] {
      order += "idle";
      idle.set_value();
    });
    own.post([&] {
      order += "1 ";
      own.post([&] { order += own.isCurrent() ? "3 " : "elsewhere "; });
    });
    own.post([&] { order += "2 "; });
  });
  waitFor(idle);
  EXPECT_FALSE(loop->isCurrent());
  thread->postAndWait([&] {
    EXPECT_EQ(order, "1 2 3 idle");
    timer.reset();
  });
}

TEST_P(ThreadsContract, TimersFireAndEndInTheirOwnAction) {
  std::unique_ptr<Timer> repeating, once, never;
  int firings = 0, onceFirings = 0;
  std::promise<void> done;
  const auto thread = start([&](RunLoop& loop) {
    never = loop.after(0.0, [] { ADD_FAILURE() << "fired after its end"; });
    never.reset();
    once = loop.after(0.0, [&] {
      ++onceFirings;
      once->fireAfter(0.0);  // to no effect
    });
    repeating = loop.every(0.001, 0.002, [&, large = std::string(1000, 'x')] {
      if (++firings < 3) return;
      repeating.reset();
      EXPECT_EQ(large.size(), 1000u) << "the action lives until it is over";
      done.set_value();
    });
  });
  waitFor(done);
  waitForEnd(*thread);  // no timer is left
  EXPECT_EQ(firings, 3);
  EXPECT_EQ(onceFirings, 1);
}

TEST_P(ThreadsContract, EndsWithoutTimersOrWhenToldTo) {
  bool ran = false;
  const auto withoutTimers = start([](RunLoop&) {});
  waitForEnd(*withoutTimers);
  withoutTimers->postAndWait([&] { ran = true; });
  std::unique_ptr<Timer> timer;
  std::atomic<bool> goOn{true};
  const auto told =
      start([&](RunLoop& loop) { timer = loop.after(kFarAway, [] {}); }, [&] { return goOn.load(); });
  told->postAndWait([&] {
    goOn = false;
    told->post([&] { ran = true; });
  });
  waitForEnd(*told);
  EXPECT_FALSE(ran) << "the queue is dropped with the end of the pass";
}

TEST_P(ThreadsContract, DestroyingDropsTheQueueAndWakesTheLoop) {
  std::unique_ptr<Timer> timer;
  const auto kept = std::make_shared<int>(0);
  {
    const auto waiting = start([&](RunLoop& loop) { timer = loop.after(kFarAway, [] {}); });
    waiting->postAndWait([] {});
    for (int i = 0; i < 100; ++i) waiting->post([kept] { ++*kept; });
  }
  EXPECT_EQ(kept.use_count(), 1) << "tasks that were dropped or run are gone";
}

TEST(PosixThreads, TasksOfManyThreadsAllRun) {
  constexpr int kThreads = 4, kTasks = 500;
  std::unique_ptr<Timer> timer;
  int count = 0;  // the loop's thread alone touches it
  const auto thread = PosixThreads().start(
      "counter", [&](RunLoop& loop) { timer = loop.every(0.0, 0.0005, [] {}); }, [] { return true; });
  std::vector<std::thread> posters;
  for (int i = 0; i < kThreads; ++i) {
    posters.emplace_back([&] {
      for (int n = 0; n < kTasks; ++n)
        n % 50 == 0 ? thread->postAndWait([&] { ++count; }) : thread->post([&] { ++count; });
    });
  }
  for (std::thread& poster : posters) poster.join();
  thread->postAndWait([&] { EXPECT_EQ(count, kThreads * kTasks); });
}

TEST(TimerQueue, KeepsToItsGridWhateverWasMissed) {
  double now = 0.0;
  TimerQueue queue([&] { return now; });
  std::vector<double> firings;
  auto timer = queue.every(1.5, 1.0, [&] { firings.push_back(now); });
  const auto fireAllAt = [&](double time) {
    now = time;
    while (queue.fireNextDue()) {
    }
  };
  for (const double time : {1.0, 1.5, 1.75, 2.5, 8.75, 8.76, 9.5}) fireAllAt(time);
  EXPECT_EQ(firings, (std::vector<double>{1.5, 2.5, 8.75, 9.5}));
  for (int i = 0; i < 100'000; ++i) {  // an interval that no binary fraction holds
    fireAllAt(now + 0.1 * (1 + i % 3));
    ASSERT_GT(timer->secondsUntilFire(), 0.0) << i;
    ASSERT_LE(timer->secondsUntilFire(), 1.0 + 1e-9) << i;
  }
}

using States = std::vector<std::string>;

/// The service manager's end of the socket.
class Manager {
 public:
  explicit Manager(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }
  ~Manager() { close(socket_); }
  /// What has come since the last call.
  States heard() const {
    States states;
    char text[64];
    for (ssize_t size; (size = recv(socket_, text, sizeof text, MSG_DONTWAIT)) > 0;)
      states.emplace_back(text, static_cast<std::size_t>(size));
    return states;
  }

 private:
  int socket_ = socket(AF_UNIX, SOCK_DGRAM, 0);
};

TEST(ServiceWatchdog, GivesSignsOfLifeFromTheMainLoop) {
  const TempFolder folder;
  const std::string path = folder.path() + "/notify";
  const Manager manager(path);
  SimWorld world;
  {
    const ServiceWatchdog watchdog(world.mainLoop(), ServiceWatchdog::Request{path, 30.0});
    EXPECT_EQ(manager.heard(), States{"READY=1"});
    world.runFor(25.0);
    EXPECT_EQ(manager.heard(), (States{"WATCHDOG=1", "WATCHDOG=1"}));
    world.sleepMachine(300.0);
    EXPECT_EQ(manager.heard(), States{}) << "a loop that stands still gives none";
  }
  EXPECT_EQ(manager.heard(), States{"STOPPING=1"});
  const ServiceWatchdog unwatched(world.mainLoop(), ServiceWatchdog::Request{path, std::nullopt});
  world.runFor(100.0);
  EXPECT_EQ(manager.heard(), States{"READY=1"});
}

TEST(ServiceWatchdog, DoesWithoutAManager) {
  SimWorld world;
  const ServiceWatchdog none(world.mainLoop(), std::nullopt);
  const ServiceWatchdog gone(world.mainLoop(), ServiceWatchdog::Request{"/nowhere/at/all", 30.0});
  const ServiceWatchdog strange(world.mainLoop(), ServiceWatchdog::Request{std::string(500, 'x'), 30.0});
  EXPECT_EQ(world.pendingTimers(), 0U);
}

}  // namespace
}  // namespace tarvel
