#pragma once
#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/TimerQueue.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/PosixClock.h"

namespace tarvel {

/// A run loop for a thread that has none of its own. Whoever owns it calls `runPass` on that thread; the
/// loop's thread is the one that called `bindToCurrentThread`. Waits on a timer of the system that goes on
/// counting while the machine sleeps, so that what fell due in the meantime fires as soon as it wakes.
class PosixRunLoop : public RunLoop {
 public:
  PosixRunLoop();

  void post(Task task) override;
  void postWhenIdle(Task task) override;
  std::unique_ptr<Timer> after(double seconds, Task action) override;
  std::unique_ptr<Timer> every(double first, double interval, Task action) override;
  bool isCurrent() const override;

  void bindToCurrentThread();
  bool hasTimers() const;
  /// Runs one due timer, posted task or idle task; when there is none, waits for one or for `wake` instead.
  void runPass();
  /// Ends a wait, now or the next time. Callable from any thread.
  void wake();
  /// Drops what is queued and from now on whatever is posted. Callable from any thread.
  void close();

 private:
  Task takePosted();
  void wait();

  PosixClock clock_;
  FileDescriptor wakeEvent_;
  FileDescriptor alarm_;
  TimerQueue timers_;
  std::deque<Task> idleTasks_;
  bool timersHadTurn_ = false;
  std::atomic<std::thread::id> thread_{};
  std::mutex mutex_;
  std::deque<Task> posted_;  ///< under the mutex
  bool closed_ = false;      ///< under the mutex
};

}  // namespace tarvel
