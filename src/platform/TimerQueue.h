#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/RunLoop.h"

namespace tarvel {

/// The timers of one loop, in the order in which they fall due. It knows no thread and doesn't wait: its loop
/// asks when the next one is due and lets it fire. One thread, the loop's; a timer may outlive the queue.
class TimerQueue {
 public:
  /// Timers due at the same moment fire in the order in which they were set.
  struct Due {
    double seconds = 0.0;
    std::uint64_t order = 0;
    friend bool operator<(const Due& left, const Due& right) {
      return left.seconds < right.seconds || (left.seconds == right.seconds && left.order < right.order);
    }
  };

  /// `monotonicSeconds` tells the time of the monotonic clock.
  explicit TimerQueue(std::function<double()> monotonicSeconds);
  ~TimerQueue();
  TimerQueue(const TimerQueue&) = delete;
  TimerQueue& operator=(const TimerQueue&) = delete;

  std::unique_ptr<Timer> after(double seconds, Task action);
  /// An interval that isn't above 0 is a programming error.
  std::unique_ptr<Timer> every(double first, double interval, Task action);

  /// Of the timers yet to fire; none if there are none.
  std::optional<Due> nextDue() const;
  std::size_t pendingCount() const;
  /// Lets the first timer that is due fire; false if none is.
  bool fireNextDue();

 private:
  struct State;
  struct Entry;
  class Handle;
  std::unique_ptr<Timer> add(double seconds, double interval, Task action);
  std::shared_ptr<State> state_;
};

}  // namespace tarvel
