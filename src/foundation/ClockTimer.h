#pragma once
#include <atomic>
#include <memory>
#include <vector>

#include "foundation/Services.h"

namespace tarvel {

/// A display that shows the time.
class ClockFace {
 public:
  virtual ~ClockFace() = default;
  virtual void setDateValue(Instant now) = 0;
};

/// An object that needs to know the time.
class TimeDelegateProtocol {
 public:
  virtual ~TimeDelegateProtocol() = default;
  /// The time now in whole seconds, pretend offset included.
  virtual void updateTimeWithNow(Instant now) = 0;
};

/// Keeps time for the application on a thread of its own, "Clock Update Thread": one tick a second while a
/// clock face or a delegate is there, one a minute otherwise, aligned to whole seconds and minutes of UTC.
/// All that a tick brings about happens on the main thread. One in the process; made, used and destroyed on
/// the main thread.
class ClockTimer {
 public:
  explicit ClockTimer(const Services& services);
  ~ClockTimer();

  /// Starts the thread; if it runs already, has it tick and begin its timer anew, and waits for that.
  void start();
  /// Invalidates the thread's timer, on the thread; does not wait. For the quit, before `terminate`.
  void stopClockTimer();
  /// Ends the thread's timers and asks it to end; does not wait for it.
  void terminate();

  /// The face gets the time at once. Adding what is there already, and removing what isn't, do nothing.
  /// Neither faces nor delegates are owned; each removes itself before it goes.
  void addClockFace(ClockFace& face);
  void removeClockFace(ClockFace& face);
  void addTimeDelegate(TimeDelegateProtocol& delegate);
  void removeTimeDelegate(TimeDelegateProtocol& delegate);

  /// Brings the time to all faces and then all delegates in a later turn of the main loop. Any thread.
  void tick();

  double clockUpdateInterval() const { return clockUpdateInterval_.load(); }

 private:
  struct Displays;  ///< the lists, shared with ticks under way
  bool threadRuns() const;
  void evaluateInterval();
  // On the clock thread:
  void clockUpdateThreadMain(RunLoop& loop);
  bool keepsRunning();
  void startClockTimer();
  void scheduleTimer();
  void updateClock();
  void clearTimers();

  Services services_;
  std::shared_ptr<Displays> displays_;
  std::atomic<std::size_t> displayCount_{0};
  std::atomic<double> clockUpdateInterval_{60.0};
  std::atomic<bool> stopClockUpdateThread_{false};
  // Belong to the clock thread:
  RunLoop* threadLoop_ = nullptr;
  std::unique_ptr<Timer> clockUpdateTimer_;
  std::unique_ptr<Timer> emptyTimer_;
  // Last, so that it ends first:
  std::unique_ptr<LoopThread> clockUpdateThread_;
};

}  // namespace tarvel
