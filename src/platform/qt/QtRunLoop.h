#pragma once
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/RunLoop.h"

class QEvent;

namespace tarvel {

/// The main thread's loop, driven by Qt's event loop of the thread that made it. Made after the
/// QCoreApplication, destroyed before it and after all its timers.
///
/// A turn runs the tasks that were posted before it began; tasks posted by these wait for the next turn, so
/// that input and painting come between. Idle tasks run in a turn that finds no posted task. Nothing runs
/// while a task or a timer's action of this loop is still on the stack, not even when it enters an event loop
/// of its own.
class QtRunLoop final : public RunLoop {
 public:
  QtRunLoop();
  ~QtRunLoop() override;
  QtRunLoop(const QtRunLoop&) = delete;
  QtRunLoop& operator=(const QtRunLoop&) = delete;

  void post(Task task) override;
  void postWhenIdle(Task task) override;
  std::unique_ptr<Timer> after(double seconds, Task action) override;
  std::unique_ptr<Timer> every(double first, double interval, Task action) override;
  bool isCurrent() const override { return std::this_thread::get_id() == thread_; }

 private:
  class LoopTimer;
  class Receiver;
  enum class Wake { posted, idle };
  /// Deadlines on the monotonic clock, and the order of setting among equal ones.
  using Deadline = std::pair<double, std::uint64_t>;

  void schedule(std::unique_lock<std::mutex>& lock, Wake wake);
  void runTurn();
  void runIdleTasks();
  bool hasPosted();
  void runDueTimers();
  void finishRun();
  Deadline enqueue(LoopTimer& timer, double deadline);
  void dequeue(const Deadline& key);
  void armTimerFd();

  const std::thread::id thread_;
  std::mutex mutex_;
  std::deque<Task> posted_;  ///< under mutex_
  bool scheduled_ =
      false;  ///< under mutex_: a wake-up is on its way, or a turn runs and will see to the next
  std::deque<Task> idle_;
  bool running_ = false;
  std::map<Deadline, LoopTimer*> timers_;
  std::uint64_t lastSequence_ = 0;
  static constexpr double kDisarmed = 0.0;
  static constexpr double kExpired = -1.0;
  int timerFd_ = -1;
  double armedFor_ = kDisarmed;  ///< what the kernel's timer stands at
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace tarvel
