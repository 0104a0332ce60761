#pragma once
#include "platform/Instant.h"
#include "platform/TimeZone.h"

namespace tarvel {

/// The two clocks of the machine. Callable from any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Wall time: dates and stamps. It can be set, forward and back, at any moment.
  virtual Instant now() const = 0;
  /// Seconds from some fixed start, never set and never back, going on while the machine sleeps: what timers
  /// run on.
  virtual double monotonicSeconds() const = 0;
  /// The zone the machine is set to now.
  virtual TimeZone machineZone() const = 0;
};

}  // namespace tarvel
