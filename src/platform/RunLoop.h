#pragma once
#include <functional>
#include <memory>

namespace tarvel {

using Task = std::function<void()>;

/// A pending timer. Destroying it invalidates it, at any moment, also within its own action; it never fires
/// after that. Used on its loop's thread only.
class Timer {
 public:
  virtual ~Timer() = default;
  /// Seconds from now to the next firing, on the monotonic clock; 0 or less when it is due. A one-shot timer
  /// that has fired answers 0.
  virtual double secondsUntilFire() const = 0;
  /// Moves the next firing to `seconds` from now. Does nothing to a one-shot timer that has fired.
  virtual void fireAfter(double seconds) = 0;
};

/// One thread's loop: posted tasks, timers, and the point where nothing is left to do. A loop is destroyed
/// after all timers made on it.
class RunLoop {
 public:
  virtual ~RunLoop() = default;
  /// Runs the task on the loop's thread in a later turn, in the order of posting. Callable from any thread;
  /// never runs the task before it returns. Tasks still queued when the loop ends are dropped.
  virtual void post(Task task) = 0;
  /// Runs the task when every posted task, including those posted meanwhile, has run. On the loop's thread
  /// only.
  virtual void postWhenIdle(Task task) = 0;
  /// Fires once, `seconds` from now on the monotonic clock (at the next turn when 0 or less).
  virtual std::unique_ptr<Timer> after(double seconds, Task action) = 0;
  /// Fires `first` seconds from now and every `interval` seconds from there. Firings missed while the thread
  /// was busy or the machine asleep are made up by a single one.
  virtual std::unique_ptr<Timer> every(double first, double interval, Task action) = 0;
  /// True when called on the loop's thread.
  virtual bool isCurrent() const = 0;
};

}  // namespace tarvel
