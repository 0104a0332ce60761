#include "platform/TimerQueue.h"

#include <atomic>
#include <cmath>
#include <map>

#include "platform/FatalError.h"

namespace tarvel {

namespace {
std::atomic<std::uint64_t> lastOrder{0};  // over all queues, so that loops on one clock can be compared
}

struct TimerQueue::Entry {
  Due due;
  double interval = 0.0;  ///< 0 for a one-shot timer
  bool pending = false;
  Task action;
};

struct TimerQueue::State {
  std::function<double()> now;
  std::map<Due, std::shared_ptr<Entry>> pending;

  void arm(const std::shared_ptr<Entry>& entry, double dueSeconds) {
    if (std::isnan(dueSeconds)) fatalError("a timer's time is no number");
    disarm(*entry);
    entry->due = {dueSeconds, ++lastOrder};
    entry->pending = true;
    pending.emplace(entry->due, entry);
  }
  void disarm(Entry& entry) {
    if (entry.pending) pending.erase(entry.due);
    entry.pending = false;
  }
};

class TimerQueue::Handle : public Timer {
 public:
  Handle(std::shared_ptr<State> state, std::shared_ptr<Entry> entry)
      : state_(std::move(state)), entry_(std::move(entry)) {}
  ~Handle() override { state_->disarm(*entry_); }
  double secondsUntilFire() const override {
    return entry_->pending ? entry_->due.seconds - state_->now() : 0.0;
  }
  void fireAfter(double seconds) override {
    if (entry_->pending) state_->arm(entry_, state_->now() + seconds);
  }

 private:
  std::shared_ptr<State> state_;
  std::shared_ptr<Entry> entry_;
};

TimerQueue::TimerQueue(std::function<double()> monotonicSeconds)
    : state_(std::make_shared<State>(State{std::move(monotonicSeconds), {}})) {}

TimerQueue::~TimerQueue() {
  for (auto& [due, entry] : state_->pending) entry->pending = false;
  state_->pending.clear();
}

std::unique_ptr<Timer> TimerQueue::after(double seconds, Task action) {
  return add(seconds, 0.0, std::move(action));
}

std::unique_ptr<Timer> TimerQueue::every(double first, double interval, Task action) {
  if (!(interval > 0.0)) fatalError("a repeating timer needs an interval");
  return add(first, interval, std::move(action));
}

std::unique_ptr<Timer> TimerQueue::add(double seconds, double interval, Task action) {
  auto entry = std::make_shared<Entry>();
  entry->interval = interval;
  entry->action = std::move(action);
  state_->arm(entry, state_->now() + seconds);
  return std::make_unique<Handle>(state_, std::move(entry));
}

std::optional<TimerQueue::Due> TimerQueue::nextDue() const {
  if (state_->pending.empty()) return std::nullopt;
  return state_->pending.begin()->first;
}

std::size_t TimerQueue::pendingCount() const {
  return state_->pending.size();
}

bool TimerQueue::fireNextDue() {
  const double now = state_->now();
  if (state_->pending.empty() || state_->pending.begin()->first.seconds > now) return false;
  // The handle may go within the action: this keeps what runs alive until it is over.
  const std::shared_ptr<Entry> entry = state_->pending.begin()->second;
  if (entry->interval == 0.0) {
    state_->disarm(*entry);
    const Task action = std::move(entry->action);
    action();
    return true;
  }
  const double missed = std::floor((now - entry->due.seconds) / entry->interval);
  double next = entry->due.seconds + (missed + 1.0) * entry->interval;
  if (next <= now) next += entry->interval;  // the division may fall short by its last bit
  state_->arm(entry, next);
  entry->action();
  return true;
}

}  // namespace tarvel
