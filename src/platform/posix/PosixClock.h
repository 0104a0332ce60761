#pragma once
#include "platform/Clock.h"

namespace tarvel {

/// The machine's own clocks.
class PosixClock : public Clock {
 public:
  Instant now() const override;
  double monotonicSeconds() const override;
  TimeZone machineZone() const override;
};

}  // namespace tarvel
