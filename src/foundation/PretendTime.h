#pragma once
#include <atomic>

#include "platform/Clock.h"

namespace tarvel {

/// The application's idea of "now": the wall clock plus an offset that a developer may set, so that a display
/// can be shown at any moment of a week. What is shown goes by `now`; stamps, timers and refreshes go by the
/// wall clock itself. Callable from any thread; the offset has one writer, on the main thread.
class PretendTime {
 public:
  explicit PretendTime(const Clock& clock) : clock_(clock) {}

  Instant now() const { return clock_.now() + offset_.load(); }
  TimeZone machineZone() const { return clock_.machineZone(); }
  /// Seconds added to real time, 0.0 at start.
  double offset() const { return offset_.load(); }
  void setOffset(double seconds) { offset_.store(seconds); }

 private:
  const Clock& clock_;
  std::atomic<double> offset_{0.0};
};

}  // namespace tarvel
