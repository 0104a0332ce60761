#pragma once
#include "platform/TimeZone.h"

namespace tarvel {

/// Where the hands of a clock stand: degrees clockwise from twelve, from 0 up to 360. The hour and minute
/// hands creep; the second hand jumps.
struct ClockHands {
  double hour = 0.0;
  double minute = 0.0;
  double second = 0.0;
  friend bool operator==(const ClockHands&, const ClockHands&) = default;
};

ClockHands clockHandsAt(const LocalTime& time);

}  // namespace tarvel
