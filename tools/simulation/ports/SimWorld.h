#pragma once
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "platform/Clock.h"
#include "platform/Threads.h"
#include "platform/TimerQueue.h"

namespace tarvel {

class SimWorld;

/// One virtual thread's loop. The world decides whose turn it is.
class SimRunLoop : public RunLoop {
 public:
  explicit SimRunLoop(SimWorld& world);
  void post(Task task) override;
  void postWhenIdle(Task task) override;
  std::unique_ptr<Timer> after(double seconds, Task action) override;
  std::unique_ptr<Timer> every(double first, double interval, Task action) override;
  bool isCurrent() const override;

  std::size_t pendingTimers() const { return timers_.pendingCount(); }
  std::size_t queuedTasks() const { return posted_.size() + idle_.size(); }

 private:
  friend class SimWorld;
  friend class SimLoopThread;
  struct Queued {
    std::uint64_t order;
    Task task;
  };
  bool runFirst(std::deque<Queued>& queue);
  bool runTimer();
  void enter(const Task& task);
  void end();

  SimWorld& world_;
  TimerQueue timers_;
  std::deque<Queued> posted_;
  std::deque<Queued> idle_;
  bool ended_ = false;
  Task afterPass_;  ///< a thread's loop asks here whether it goes on
};

/// The machine's clocks in virtual time.
class SimClock : public Clock {
 public:
  Instant now() const override { return wallStart_ + monotonic_; }
  double monotonicSeconds() const override { return monotonic_; }
  TimeZone machineZone() const override { return zone_; }
  void setMachineZone(TimeZone zone) { zone_ = zone; }

 private:
  friend class SimWorld;
  double monotonic_ = 0.0;
  Instant wallStart_;  ///< wall time at monotonic 0
  TimeZone zone_ = TimeZone::utc();
};

/// All virtual threads on one real one, in virtual time: runs what is ready in the order of posting, over all
/// loops; then what waits for idleness; then timers that are due; and when nothing is left, time jumps to the
/// next timer. More than `kBusyLimit` tasks of one run with no time passing is a loop that never rests:
/// std::runtime_error.
class SimWorld : public Threads {
 public:
  static constexpr int kBusyLimit = 100'000;

  explicit SimWorld(Instant start = {794'664'000.0});  // 2026-03-08 12:00 UTC
  ~SimWorld() override;

  SimRunLoop& mainLoop() { return *loops_.front(); }
  const SimClock& clock() const { return clock_; }
  Instant now() const { return clock_.now(); }
  double seconds() const { return clock_.monotonic_; }
  void setMachineZone(TimeZone zone) { clock_.setMachineZone(zone); }

  /// Runs all that is ready, and what that makes ready; no time passes.
  void runUntilIdle();
  void runFor(double seconds);
  /// By the wall clock as it goes now; does nothing if that moment is over.
  void runUntil(Instant instant);
  /// Looks after every task; false if `maxSeconds` have passed without the condition coming true.
  bool runUntil(const std::function<bool()>& condition, double maxSeconds);

  /// The wall clock jumps, back when negative; the monotonic one doesn't.
  void stepWall(double seconds) { clock_.wallStart_ = clock_.wallStart_ + seconds; }
  /// Both clocks go on and nothing runs. What fell due fires at the next run.
  void sleepMachine(double seconds) { advance(seconds); }

  /// The program ends: what its main loop still had to do is dropped. Timers go with those who hold them.
  void dropTasks();

  std::uint64_t tasksRun() const { return tasksRun_; }
  std::size_t pendingTimers() const;

  std::unique_ptr<LoopThread> start(std::string name, std::function<void(RunLoop&)> main,
                                    std::function<bool()> keepRunning) override;
  void nameCurrentThread(const std::string& name) override { threadNames_.push_back(name); }
  /// In the order of naming; starting a thread names it.
  const std::vector<std::string>& threadNames() const { return threadNames_; }

 private:
  friend class SimRunLoop;
  friend class SimLoopThread;
  /// Runs one thing that is ready; false if nothing is.
  bool step();
  std::shared_ptr<SimRunLoop> firstOf(std::deque<SimRunLoop::Queued> SimRunLoop::*queue) const;
  std::shared_ptr<SimRunLoop> withNextTimer() const;
  void advance(double seconds);
  std::shared_ptr<SimRunLoop> addLoop();

  SimClock clock_;
  std::vector<std::shared_ptr<SimRunLoop>> loops_;  ///< the main one first
  SimRunLoop* current_ = nullptr;
  std::uint64_t lastOrder_ = 0;
  std::uint64_t tasksRun_ = 0;
  int tasksAtThisInstant_ = 0;
  std::vector<std::string> threadNames_;
};

}  // namespace tarvel
