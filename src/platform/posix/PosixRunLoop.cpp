#include "platform/posix/PosixRunLoop.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>

#include <array>
#include <cmath>

#include "platform/FatalError.h"

namespace tarvel {

namespace {
// The system's timer refuses what it can't count to; a loop that wakes once in a century may well look again.
constexpr double kLongestWait = 3e9;
}  // namespace

PosixRunLoop::PosixRunLoop()
    : wakeEvent_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      alarm_(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      timers_([this] { return clock_.monotonicSeconds(); }) {
  if (!wakeEvent_.valid() || !alarm_.valid()) fatalError("no descriptors left for a run loop");
}

void PosixRunLoop::post(Task task) {
  {
    const std::lock_guard lock(mutex_);
    if (closed_) return;
    posted_.push_back(std::move(task));
  }
  wake();
}

void PosixRunLoop::postWhenIdle(Task task) {
  idleTasks_.push_back(std::move(task));
}

std::unique_ptr<Timer> PosixRunLoop::after(double seconds, Task action) {
  return timers_.after(seconds, std::move(action));
}

std::unique_ptr<Timer> PosixRunLoop::every(double first, double interval, Task action) {
  return timers_.every(first, interval, std::move(action));
}

bool PosixRunLoop::isCurrent() const {
  return thread_.load() == std::this_thread::get_id();
}

void PosixRunLoop::bindToCurrentThread() {
  thread_.store(std::this_thread::get_id());
}

bool PosixRunLoop::hasTimers() const {
  return timers_.pendingCount() > 0;
}

void PosixRunLoop::wake() {
  const std::uint64_t one = 1;
  // It can only fail when the count is full, and then the loop is awake anyway.
  (void)!::write(wakeEvent_.number(), &one, sizeof one);
}

void PosixRunLoop::close() {
  std::deque<Task> dropped;  // let go of outside the lock: what a task holds may post
  const std::lock_guard lock(mutex_);
  closed_ = true;
  dropped.swap(posted_);
}

Task PosixRunLoop::takePosted() {
  const std::lock_guard lock(mutex_);
  if (posted_.empty()) return {};
  Task task = std::move(posted_.front());
  posted_.pop_front();
  return task;
}

void PosixRunLoop::wait() {
  double seconds = kLongestWait;
  if (const auto due = timers_.nextDue())
    seconds = std::fmin(seconds, due->seconds - clock_.monotonicSeconds());
  if (seconds > 0.0) {
    const double whole = std::floor(seconds);
    // Up to the next nanosecond, and never 0 in all, which would switch the alarm off.
    const itimerspec alarm{
        {}, {static_cast<time_t>(whole), std::lround(std::ceil((seconds - whole) * 999'999'999.0))}};
    ::timerfd_settime(alarm_.number(), 0, &alarm, nullptr);
    std::array<pollfd, 2> sources{pollfd{wakeEvent_.number(), POLLIN, 0}, pollfd{alarm_.number(), POLLIN, 0}};
    retryingInterrupted([&] { return ::poll(sources.data(), sources.size(), -1); });
  }
  std::uint64_t count = 0;
  (void)!::read(wakeEvent_.number(), &count, sizeof count);
}

void PosixRunLoop::runPass() {
  // Timers and posted tasks take turns, so that neither can keep the other waiting for good.
  if (!timersHadTurn_ && timers_.fireNextDue()) {
    timersHadTurn_ = true;
    return;
  }
  timersHadTurn_ = false;
  if (const Task task = takePosted()) return task();
  if (timers_.fireNextDue()) return;
  if (!idleTasks_.empty()) {
    const Task task = std::move(idleTasks_.front());
    idleTasks_.pop_front();
    return task();
  }
  wait();
}

}  // namespace tarvel
