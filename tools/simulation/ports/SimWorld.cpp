#include "simulation/ports/SimWorld.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarvel {

SimRunLoop::SimRunLoop(SimWorld& world) : world_(world), timers_([&world] { return world.seconds(); }) {}

void SimRunLoop::post(Task task) {
  if (!ended_) posted_.push_back({++world_.lastOrder_, std::move(task)});
}

void SimRunLoop::postWhenIdle(Task task) {
  if (!ended_) idle_.push_back({++world_.lastOrder_, std::move(task)});
}

std::unique_ptr<Timer> SimRunLoop::after(double seconds, Task action) {
  return timers_.after(seconds, std::move(action));
}

std::unique_ptr<Timer> SimRunLoop::every(double first, double interval, Task action) {
  return timers_.every(first, interval, std::move(action));
}

bool SimRunLoop::isCurrent() const {
  return world_.current_ == this;
}

void SimRunLoop::enter(const Task& task) {
  if (++world_.tasksAtThisInstant_ > SimWorld::kBusyLimit)
    throw std::runtime_error("busy loop: time stands still");
  ++world_.tasksRun_;
  struct Turn {
    SimRunLoop*& current;
    SimRunLoop* previous;
    ~Turn() { current = previous; }
  } turn{world_.current_, std::exchange(world_.current_, this)};
  task();
  if (afterPass_ && !ended_) afterPass_();
}

bool SimRunLoop::runFirst(std::deque<Queued>& queue) {
  if (queue.empty()) return false;
  const Task task = std::move(queue.front().task);
  queue.pop_front();
  enter(task);
  return true;
}

bool SimRunLoop::runTimer() {
  const auto due = timers_.nextDue();
  if (!due || due->seconds > world_.seconds()) return false;
  enter([this] { timers_.fireNextDue(); });
  return true;
}

void SimRunLoop::end() {
  ended_ = true;
  posted_.clear();
  idle_.clear();
}

/// Posting wakes no one here: the world looks at every loop.
class SimLoopThread : public LoopThread {
 public:
  SimLoopThread(SimWorld& world, std::shared_ptr<SimRunLoop> loop) : world_(world), loop_(std::move(loop)) {}
  ~SimLoopThread() override {
    loop_->end();
    std::erase(world_.loops_, loop_);
  }
  void post(Task task) override { loop_->post(std::move(task)); }
  void postAndWait(Task task) override {
    const auto hasRun = std::make_shared<bool>(false);
    loop_->post([hasRun, task = std::move(task)] {
      task();
      *hasRun = true;
    });
    while (!*hasRun && !loop_->ended_) loop_->runFirst(loop_->posted_);
  }
  bool ended() const override { return loop_->ended_; }

 private:
  SimWorld& world_;
  std::shared_ptr<SimRunLoop> loop_;
};

SimWorld::SimWorld(Instant start) {
  clock_.wallStart_ = start;
  current_ = addLoop().get();
}

SimWorld::~SimWorld() = default;

std::shared_ptr<SimRunLoop> SimWorld::addLoop() {
  loops_.push_back(std::make_shared<SimRunLoop>(*this));
  return loops_.back();
}

std::unique_ptr<LoopThread> SimWorld::start(std::string name, std::function<void(RunLoop&)> main,
                                            std::function<bool()> keepRunning) {
  const auto loop = addLoop();
  loop->post([this, loop = loop.get(), name = std::move(name), main = std::move(main), keepRunning] {
    nameCurrentThread(name);
    main(*loop);
    loop->afterPass_ = [loop, keepRunning] {
      if (loop->timers_.pendingCount() == 0 || !keepRunning()) loop->end();
    };
  });
  return std::make_unique<SimLoopThread>(*this, loop);
}

std::shared_ptr<SimRunLoop> SimWorld::firstOf(std::deque<SimRunLoop::Queued> SimRunLoop::*queue) const {
  std::shared_ptr<SimRunLoop> first;
  for (const auto& loop : loops_) {
    const auto& tasks = (*loop).*queue;
    if (!tasks.empty() && (!first || tasks.front().order < ((*first).*queue).front().order)) first = loop;
  }
  return first;
}

std::shared_ptr<SimRunLoop> SimWorld::withNextTimer() const {
  std::shared_ptr<SimRunLoop> first;
  for (const auto& loop : loops_) {
    const auto due = loop->timers_.nextDue();
    if (!loop->ended_ && due && (!first || *due < *first->timers_.nextDue())) first = loop;
  }
  return first;
}

bool SimWorld::step() {
  // A thread may go while its own task runs: these hold its loop until the turn is over.
  if (const auto loop = firstOf(&SimRunLoop::posted_)) return loop->runFirst(loop->posted_);
  if (const auto loop = firstOf(&SimRunLoop::idle_)) return loop->runFirst(loop->idle_);
  const auto loop = withNextTimer();
  return loop && loop->runTimer();
}

void SimWorld::advance(double seconds) {
  if (seconds < 0.0) throw std::invalid_argument("the monotonic clock never goes back");
  clock_.monotonic_ += seconds;
  if (seconds > 0.0) tasksAtThisInstant_ = 0;
}

void SimWorld::runUntilIdle() {
  tasksAtThisInstant_ = 0;
  while (step()) {
  }
}

void SimWorld::runFor(double seconds) {
  runUntil([] { return false; }, seconds);
}

void SimWorld::runUntil(Instant instant) {
  runFor(std::max(0.0, instant - now()));
}

bool SimWorld::runUntil(const std::function<bool()>& condition, double maxSeconds) {
  tasksAtThisInstant_ = 0;
  const double end = seconds() + maxSeconds;
  for (;;) {
    if (condition()) return true;
    if (step()) continue;
    const auto next = withNextTimer();
    const double due = next ? next->timers_.nextDue()->seconds : end;
    if (due < end || (next && due == end)) {
      tasksAtThisInstant_ = 0;
      clock_.monotonic_ = due;
      continue;
    }
    advance(end - seconds());
    clock_.monotonic_ = end;
    return condition();
  }
}

void SimWorld::dropTasks() {
  // What goes with a task may post another.
  SimRunLoop& loop = mainLoop();
  while (loop.queuedTasks() > 0) {
    const auto posted = std::exchange(loop.posted_, {});
    const auto idle = std::exchange(loop.idle_, {});
  }
}

std::size_t SimWorld::pendingTimers() const {
  std::size_t count = 0;
  for (const auto& loop : loops_) count += loop->pendingTimers();
  return count;
}

}  // namespace tarvel
