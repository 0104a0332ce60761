#include <gtest/gtest.h>

#include "foundation/ClockTimer.h"
#include "platform/posix/PosixRunLoop.h"
#include "platform/posix/PosixThreads.h"
#include "simulation/ports/SimServices.h"

namespace tarvel {
namespace {

struct CountingDelegate : TimeDelegateProtocol {
  void updateTimeWithNow(Instant) override { ++ticks; }
  int ticks = 0;
};

// The clock on a thread of its own, for what only a real thread shows. Time stands still at a whole second,
// so the timer is due whenever it is made, and nothing here waits for time to pass.
TEST(ClockTimerThread, StartsTicksAndEndsWhileDisplaysComeAndGo) {
  SimServices sim;
  PosixRunLoop mainLoop;
  mainLoop.bindToCurrentThread();
  PosixThreads threads;
  const Services services{mainLoop,   sim.world.clock(), sim.pretendTime, sim.disk,         sim.http,
                          sim.images, threads,           sim.console,     sim.notifications};
  enum class Ending { terminated, stoppedAndTerminated, destroyed };
  for (const Ending ending : {Ending::terminated, Ending::stoppedAndTerminated, Ending::destroyed}) {
    ClockTimer clock(services);
    CountingDelegate delegate;
    clock.start();
    for (int round = 0; round < 50; ++round) {
      clock.addTimeDelegate(delegate);
      clock.start();
      const int before = delegate.ticks;
      while (delegate.ticks == before) mainLoop.runPass();
      sim.pretendTime.setOffset(round);
      clock.removeTimeDelegate(delegate);
    }
    clock.addTimeDelegate(delegate);
    if (ending == Ending::stoppedAndTerminated) clock.stopClockTimer();
    if (ending != Ending::destroyed) clock.terminate();
    clock.removeTimeDelegate(delegate);
  }
}

}  // namespace
}  // namespace tarvel
