#include "platform/posix/PosixClock.h"

#include <time.h>

namespace tarvel {

Instant PosixClock::now() const {
  timespec time{};
  clock_gettime(CLOCK_REALTIME, &time);
  return instantOf({time.tv_sec, time.tv_nsec});
}

double PosixClock::monotonicSeconds() const {
  timespec time{};
  clock_gettime(CLOCK_BOOTTIME, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

TimeZone PosixClock::machineZone() const {
  return TimeZone::ofMachine();
}

}  // namespace tarvel
