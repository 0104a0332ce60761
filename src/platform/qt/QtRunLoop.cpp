#include "platform/qt/QtRunLoop.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <cmath>
#include <ctime>
#include <vector>

#include "platform/FatalError.h"

namespace tarvel {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
/// Beyond this the kernel's seconds could overflow; no timer of ours waits for a hundred years.
constexpr double kLongestWait = 100.0 * 366 * 86400;

double monotonicNow() {
  timespec time{};
  clock_gettime(CLOCK_BOOTTIME, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / kNanosecondsPerSecond;
}

double deadlineIn(double seconds) {
  return monotonicNow() + std::fmin(std::fmax(seconds, 0.0), kLongestWait);
}

QEvent::Type turnEvent() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

/// Never inlined, so that the thread sanitizer's exceptions can name it: Qt's queue orders the making of an
/// event and this look at it, by means that the sanitizer doesn't see.
[[gnu::noinline]] bool isTurnEvent(const QEvent& event) {
  return event.type() == turnEvent();
}

}  // namespace

/// Where Qt's events reach the loop.
class QtRunLoop::Receiver final : public QObject {
 public:
  Receiver(QtRunLoop& loop, int timerFd) : loop_(loop), notifier_(timerFd, QSocketNotifier::Read) {
    connect(&notifier_, &QSocketNotifier::activated, this, [this] { loop_.runDueTimers(); });
    nextTurn_.setSingleShot(true);
    connect(&nextTurn_, &QTimer::timeout, this, [this] { loop_.runTurn(); });
  }

  void startNextTurn() { nextTurn_.start(0); }
  void watchTimers(bool watch) { notifier_.setEnabled(watch); }

 protected:
  bool event(QEvent* event) override {
    if (!isTurnEvent(*event)) return QObject::event(event);
    loop_.runTurn();
    return true;
  }

 private:
  QtRunLoop& loop_;
  QSocketNotifier notifier_;
  QTimer nextTurn_;
};

class QtRunLoop::LoopTimer final : public Timer {
 public:
  LoopTimer(QtRunLoop& loop, double first, double interval, Task action)
      : loop_(loop), interval_(interval), action_(std::make_shared<Task>(std::move(action))) {
    key_ = loop_.enqueue(*this, deadlineIn(first));
  }
  ~LoopTimer() override {
    if (pending_) loop_.dequeue(key_);
  }

  double secondsUntilFire() const override { return pending_ ? key_.first - monotonicNow() : 0.0; }

  void fireAfter(double seconds) override {
    if (!pending_) return;
    loop_.dequeue(key_);
    key_ = loop_.enqueue(*this, deadlineIn(seconds));
  }

  /// Sets the next firing, or none, and gives the action, which must outlive a timer that is destroyed within
  /// it.
  std::shared_ptr<Task> beginFiring(double now) {
    loop_.dequeue(key_);
    pending_ = interval_ > 0.0;
    if (pending_) {
      const double passed = std::floor((now - key_.first) / interval_);
      key_ = loop_.enqueue(*this, key_.first + (passed + 1.0) * interval_);
    }
    return action_;
  }

 private:
  QtRunLoop& loop_;
  const double interval_;  ///< 0 for a one-shot timer
  std::shared_ptr<Task> action_;
  Deadline key_;
  bool pending_ = true;
};

QtRunLoop::QtRunLoop()
    : thread_(std::this_thread::get_id()),
      timerFd_(timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
  if (timerFd_ < 0) fatalError("no timer descriptor");
  receiver_ = std::make_unique<Receiver>(*this, timerFd_);
}

QtRunLoop::~QtRunLoop() {
  // What a dropped task holds may post or end a timer as it goes, so the tasks go while the loop is whole.
  std::deque<Task> dropped;
  {
    const std::lock_guard lock(mutex_);
    dropped.swap(posted_);
    scheduled_ = true;
  }
  dropped.clear();
  std::deque<Task>().swap(idle_);
  receiver_.reset();
  if (!timers_.empty()) fatalError("a run loop ended before its timers");
  close(timerFd_);
}

void QtRunLoop::post(Task task) {
  std::unique_lock lock(mutex_);
  posted_.push_back(std::move(task));
  schedule(lock, Wake::posted);
}

void QtRunLoop::postWhenIdle(Task task) {
  idle_.push_back(std::move(task));
  std::unique_lock lock(mutex_);
  schedule(lock, Wake::idle);
}

void QtRunLoop::schedule(std::unique_lock<std::mutex>& lock, Wake wake) {
  if (scheduled_) return;
  scheduled_ = true;
  lock.unlock();
  // Behind everything that Qt has queued for its own, repaints included, when there is only idle work.
  const int priority = wake == Wake::idle ? Qt::LowEventPriority : Qt::NormalEventPriority;
  QCoreApplication::postEvent(receiver_.get(), new QEvent(turnEvent()), priority);
}

bool QtRunLoop::hasPosted() {
  const std::lock_guard lock(mutex_);
  return !posted_.empty();
}

void QtRunLoop::runTurn() {
  if (running_) return;  // what runs now looks for further work when it ends
  running_ = true;
  std::deque<Task> batch;
  {
    const std::lock_guard lock(mutex_);
    batch.swap(posted_);
    scheduled_ = true;
  }
  if (batch.empty()) runIdleTasks();
  while (!batch.empty()) {
    const Task task = std::move(batch.front());
    batch.pop_front();
    task();
  }
  finishRun();
}

void QtRunLoop::runIdleTasks() {
  for (std::size_t left = idle_.size(); left > 0 && !hasPosted(); --left) {
    const Task task = std::move(idle_.front());
    idle_.pop_front();
    task();
  }
}

void QtRunLoop::finishRun() {
  running_ = false;
  armTimerFd();
  const std::lock_guard lock(mutex_);
  scheduled_ = !posted_.empty() || !idle_.empty();
  // A timer of Qt's rather than an event: Qt would deliver an event posted here before it looks at input
  // again.
  if (scheduled_) receiver_->startNextTurn();
}

std::unique_ptr<Timer> QtRunLoop::after(double seconds, Task action) {
  return std::make_unique<LoopTimer>(*this, seconds, 0.0, std::move(action));
}

std::unique_ptr<Timer> QtRunLoop::every(double first, double interval, Task action) {
  if (!(interval > 0.0)) fatalError("a repeating timer needs an interval");
  return std::make_unique<LoopTimer>(*this, first, interval, std::move(action));
}

QtRunLoop::Deadline QtRunLoop::enqueue(LoopTimer& timer, double deadline) {
  const Deadline key{deadline, ++lastSequence_};
  timers_.emplace(key, &timer);
  armTimerFd();
  return key;
}

void QtRunLoop::dequeue(const Deadline& key) {
  timers_.erase(key);
  armTimerFd();
}

void QtRunLoop::armTimerFd() {
  if (running_) return;  // once, when the run ends
  const double deadline = timers_.empty() ? kDisarmed : timers_.begin()->first.first;
  if (deadline == armedFor_) return;
  armedFor_ = deadline;
  itimerspec setting{};
  if (deadline != kDisarmed) {
    // A little late rather than early: the deadline must have passed when the descriptor wakes the loop.
    const double nanoseconds = std::ceil(deadline * kNanosecondsPerSecond);
    const auto whole = static_cast<long long>(nanoseconds / kNanosecondsPerSecond);
    setting.it_value.tv_sec = static_cast<time_t>(whole);
    setting.it_value.tv_nsec =
        static_cast<long>(nanoseconds - static_cast<double>(whole) * kNanosecondsPerSecond);
  }
  timerfd_settime(timerFd_, TFD_TIMER_ABSTIME, &setting, nullptr);
}

void QtRunLoop::runDueTimers() {
  if (running_) return;
  running_ = true;
  receiver_->watchTimers(false);  // or an event loop within an action would spin on the expired descriptor
  armedFor_ = kExpired;
  const double now = monotonicNow();
  const std::uint64_t lastOfThisTurn = lastSequence_;
  // Each action may end or move any timer, so the queue is looked at afresh after every one.
  for (;;) {
    auto next = timers_.begin();
    while (next != timers_.end() && next->first.first <= now && next->first.second > lastOfThisTurn) ++next;
    if (next == timers_.end() || next->first.first > now) break;
    const std::shared_ptr<Task> action = next->second->beginFiring(now);
    (*action)();
  }
  finishRun();
  receiver_->watchTimers(true);
}

}  // namespace tarvel
