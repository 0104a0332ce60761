#include "foundation/ClockTimer.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr double kFastInterval = 1.0;         // seconds
constexpr double kSlowInterval = 60.0;        // seconds
constexpr double kEmptyInterval = 86400.0;    // seconds
constexpr double kAlignmentTolerance = 0.05;  // seconds

template <class T>
bool contains(const std::vector<T*>& list, const T* item) {
  return std::find(list.begin(), list.end(), item) != list.end();
}

/// Calls the operation for each item of the list. An operation may take any item out of the list, which is
/// then passed over, and add others, which wait for the next tick.
template <class T, class Operation>
void forEachStill(const std::vector<T*>& list, Operation operation) {
  for (T* item : std::vector<T*>(list)) {
    if (contains(list, item)) operation(*item);
  }
}

}  // namespace

/// Main thread only.
struct ClockTimer::Displays {
  std::vector<ClockFace*> clockFaces;
  std::vector<TimeDelegateProtocol*> timeDelegates;
};

ClockTimer::ClockTimer(const Services& services)
    : services_(services), displays_(std::make_shared<Displays>()) {}

ClockTimer::~ClockTimer() {
  displays_->clockFaces.clear();
  displays_->timeDelegates.clear();
  stopClockUpdateThread_ = true;
  // The timers have to go on their own thread, and while its loop still stands.
  if (threadRuns()) clockUpdateThread_->postAndWait([this] { clearTimers(); });
}

bool ClockTimer::threadRuns() const {
  return clockUpdateThread_ && !clockUpdateThread_->ended();
}

void ClockTimer::start() {
  if (threadRuns()) {
    clockUpdateThread_->postAndWait([this] { startClockTimer(); });
    return;
  }
  clockUpdateThread_.reset();
  stopClockUpdateThread_ = false;
  clockUpdateThread_ = services_.threads.start(
      "Clock Update Thread", [this](RunLoop& loop) { clockUpdateThreadMain(loop); },
      [this] { return keepsRunning(); });
}

void ClockTimer::stopClockTimer() {
  if (threadRuns()) clockUpdateThread_->post([this] { clockUpdateTimer_.reset(); });
}

void ClockTimer::terminate() {
  stopClockUpdateThread_ = true;
  if (threadRuns()) clockUpdateThread_->post([this] { clearTimers(); });
}

void ClockTimer::addClockFace(ClockFace& face) {
  if (contains(displays_->clockFaces, &face)) return;
  displays_->clockFaces.push_back(&face);
  face.setDateValue(services_.pretendTime.now());
  evaluateInterval();
}

void ClockTimer::removeClockFace(ClockFace& face) {
  if (std::erase(displays_->clockFaces, &face) > 0) evaluateInterval();
}

void ClockTimer::addTimeDelegate(TimeDelegateProtocol& delegate) {
  if (contains(displays_->timeDelegates, &delegate)) return;
  displays_->timeDelegates.push_back(&delegate);
  evaluateInterval();
}

void ClockTimer::removeTimeDelegate(TimeDelegateProtocol& delegate) {
  if (std::erase(displays_->timeDelegates, &delegate) > 0) evaluateInterval();
}

void ClockTimer::tick() {
  const Instant now{std::round(services_.pretendTime.now().seconds)};
  if (displayCount_ == 0) return;
  services_.mainLoop.post([displays = displays_, now] {
    forEachStill(displays->clockFaces, [now](ClockFace& face) { face.setDateValue(now); });
    forEachStill(displays->timeDelegates,
                 [now](TimeDelegateProtocol& delegate) { delegate.updateTimeWithNow(now); });
  });
}

void ClockTimer::evaluateInterval() {
  displayCount_ = displays_->clockFaces.size() + displays_->timeDelegates.size();
  const double wanted = displayCount_ > 0 ? kFastInterval : kSlowInterval;
  if (clockUpdateInterval_ == wanted) return;
  if (wanted == kFastInterval) tick();  // a display that was just added doesn't wait for a whole minute
  clockUpdateInterval_ = wanted;
  if (threadRuns()) clockUpdateThread_->post([this] { scheduleTimer(); });
}

void ClockTimer::clockUpdateThreadMain(RunLoop& loop) {
  threadLoop_ = &loop;
  tick();
  scheduleTimer();
  // Its only work is to keep the loop from running out of timers and ending.
  emptyTimer_ = loop.every(kEmptyInterval, kEmptyInterval, [] {});
}

bool ClockTimer::keepsRunning() {
  if (!stopClockUpdateThread_) return true;
  // The loop may find the flag before the task that `terminate` posted has run.
  clearTimers();
  return false;
}

void ClockTimer::startClockTimer() {
  tick();
  scheduleTimer();
}

void ClockTimer::scheduleTimer() {
  clockUpdateTimer_.reset();
  const double interval = clockUpdateInterval_;
  const double time = services_.clock.now().seconds;
  const double first = std::ceil(time / interval) * interval;
  clockUpdateTimer_ = threadLoop_->every(first - time, interval, [this] { updateClock(); });
}

void ClockTimer::updateClock() {
  tick();
  // The timer runs on the monotonic clock. When the wall clock has been set, or the machine has slept, its
  // firings no longer fall on whole seconds or minutes of wall time, so it begins anew at the next of those.
  const double interval = clockUpdateInterval_;
  const double time = services_.clock.now().seconds;
  const double offBy = std::abs(time - std::round(time / interval) * interval);
  if (offBy > kAlignmentTolerance) scheduleTimer();
}

void ClockTimer::clearTimers() {
  emptyTimer_.reset();
  clockUpdateTimer_.reset();
}

}  // namespace tarvel
