#include "foundation/NotificationCenter.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace tarvel {

struct NotificationCenter::Observation::Entry {
  std::weak_ptr<State> state;
  std::string name;
  const void* object;  ///< null for any
  Handler handler;
  bool active = true;  ///< false once the observation has ended: a delivery under way passes it over
};

/// Main thread only, but for the loop. Tasks under way hold it weakly, and a delivery holds it until its end.
struct NotificationCenter::State {
  using EntryPointer = std::shared_ptr<Observation::Entry>;

  explicit State(RunLoop& loop) : mainLoop(loop) {}

  static void deliver(const std::shared_ptr<State>& state, const Notification& notification);
  static void enqueue(const std::shared_ptr<State>& state, Notification notification);
  static void deliverFirstOfIdleQueue(const std::shared_ptr<State>& state);
  std::vector<EntryPointer> observersOf(const Notification& notification) const;
  void remove(const EntryPointer& entry);

  RunLoop& mainLoop;
  bool centerGone = false;
  std::map<std::string, std::vector<EntryPointer>, std::less<>> entries;
  std::deque<Notification> idleQueue;
};

std::vector<NotificationCenter::State::EntryPointer> NotificationCenter::State::observersOf(
    const Notification& notification) const {
  std::vector<EntryPointer> observers;
  const auto named = entries.find(notification.name.text);
  if (named == entries.end()) return observers;
  const void* object = notification.object.identity();
  std::copy_if(named->second.begin(), named->second.end(), std::back_inserter(observers),
               [object](const EntryPointer& entry) { return !entry->object || entry->object == object; });
  return observers;
}

void NotificationCenter::State::remove(const EntryPointer& entry) {
  const auto named = entries.find(entry->name);
  if (named != entries.end()) std::erase(named->second, entry);
}

void NotificationCenter::State::deliver(const std::shared_ptr<State>& state,
                                        const Notification& notification) {
  // The handlers may begin and end observations, and even end the center: so the list is a copy, which also
  // keeps a handler whole that ends its own observation, and each entry is looked at again when its turn
  // comes.
  for (const EntryPointer& entry : state->observersOf(notification)) {
    if (state->centerGone) return;
    if (entry->active) entry->handler(notification);
  }
}

void NotificationCenter::State::enqueue(const std::shared_ptr<State>& state, Notification notification) {
  const bool waits = std::any_of(state->idleQueue.begin(), state->idleQueue.end(),
                                 [&notification](const Notification& waiting) {
                                   return waiting.name == notification.name &&
                                          waiting.object.identity() == notification.object.identity();
                                 });
  if (waits) return;
  state->idleQueue.push_back(std::move(notification));
  // One idle point each, so that what one delivery posts has come in before the next one runs.
  state->mainLoop.postWhenIdle([weak = std::weak_ptr<State>(state)] {
    if (const auto held = weak.lock()) deliverFirstOfIdleQueue(held);
  });
}

void NotificationCenter::State::deliverFirstOfIdleQueue(const std::shared_ptr<State>& state) {
  if (state->centerGone || state->idleQueue.empty()) return;
  // It leaves the queue first: a request made by its own observer is a new one.
  const Notification notification = std::move(state->idleQueue.front());
  state->idleQueue.pop_front();
  deliver(state, notification);
}

std::optional<std::int64_t> Notification::integer(std::string_view key) const {
  const auto entry = userInfo.find(key);
  if (entry == userInfo.end()) return std::nullopt;
  return entry->second;
}

NotificationCenter::Observation::Observation(std::shared_ptr<Entry> entry) : entry_(std::move(entry)) {}

NotificationCenter::Observation::Observation(Observation&& other) noexcept = default;

NotificationCenter::Observation& NotificationCenter::Observation::operator=(Observation&& other) noexcept {
  if (this != &other) {
    end();
    entry_ = std::move(other.entry_);
  }
  return *this;
}

NotificationCenter::Observation::~Observation() {
  end();
}

void NotificationCenter::Observation::end() {
  const auto entry = std::exchange(entry_, nullptr);
  if (!entry) return;
  entry->active = false;
  if (const auto state = entry->state.lock()) state->remove(entry);
}

NotificationCenter::NotificationCenter(RunLoop& mainLoop)
    : mainLoop_(mainLoop), state_(std::make_shared<State>(mainLoop)) {}

NotificationCenter::~NotificationCenter() {
  state_->centerGone = true;
}

NotificationCenter::Observation NotificationCenter::observe(NotificationName name, Handler handler) {
  return observe(name, nullptr, std::move(handler));
}

NotificationCenter::Observation NotificationCenter::observe(NotificationName name, const void* object,
                                                            Handler handler) {
  auto entry = std::make_shared<Observation::Entry>(
      Observation::Entry{state_, std::string(name.text), object, std::move(handler)});
  state_->entries[entry->name].push_back(entry);
  return Observation(std::move(entry));
}

void NotificationCenter::postNotification(NotificationName name, NotificationObject object,
                                          UserInfo userInfo) {
  mainLoop_.post([weak = std::weak_ptr<State>(state_),
                  notification = Notification{name, std::move(object), std::move(userInfo)}] {
    if (const auto state = weak.lock()) State::deliver(state, notification);
  });
}

void NotificationCenter::enqueueNotification(Notification notification) {
  if (mainLoop_.isCurrent()) {
    State::enqueue(state_, std::move(notification));
    return;
  }
  mainLoop_.post([weak = std::weak_ptr<State>(state_), notification = std::move(notification)] {
    if (const auto state = weak.lock()) State::enqueue(state, notification);
  });
}

void NotificationCenter::deliver(const Notification& notification) {
  const auto state = state_;  // outlives a handler that ends the center
  State::deliver(state, notification);
}

}  // namespace tarvel
