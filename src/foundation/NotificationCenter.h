#pragma once
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/NotificationNames.h"
#include "platform/RunLoop.h"

namespace tarvel {

/// Whom a notification is about. It is compared by identity and never looked into. Made from a `shared_ptr`
/// it keeps the object alive until the delivery is over; made from a plain pointer it does not, and the
/// observers must only compare it.
class NotificationObject {
 public:
  NotificationObject() = default;
  NotificationObject(std::nullptr_t) {}
  template <class T>
  NotificationObject(const std::shared_ptr<T>& object) : identity_(object.get()), keepAlive_(object) {}
  template <class T>
  NotificationObject(const T* object) : identity_(object) {}

  const void* identity() const { return identity_; }
  template <class T>
  bool is(const T* object) const {
    return identity_ == static_cast<const void*>(object);
  }

 private:
  const void* identity_ = nullptr;
  std::shared_ptr<const void> keepAlive_;
};

using UserInfo = std::map<std::string, std::int64_t, std::less<>>;

struct Notification {
  NotificationName name;
  NotificationObject object;
  UserInfo userInfo;

  std::optional<std::int64_t> integer(std::string_view key) const;
};

/// Carries every change from the model to who shows it. Two ways of delivery, which are not interchangeable:
/// `postNotification` for changes of the model (later, one delivery a post), and `enqueueNotification` for a
/// view or controller that asks itself for one pass at the idle point (equal name and object become one
/// delivery). Observers run on the main thread only.
class NotificationCenter {
 public:
  using Handler = std::function<void(const Notification&)>;

  /// One registration. It ends with its holder, at any moment, also during a delivery: the handler isn't
  /// called again.
  class [[nodiscard]] Observation {
   public:
    Observation() = default;
    Observation(Observation&& other) noexcept;
    Observation& operator=(Observation&& other) noexcept;
    ~Observation();

   private:
    friend class NotificationCenter;
    struct Entry;
    explicit Observation(std::shared_ptr<Entry> entry);
    void end();
    std::shared_ptr<Entry> entry_;
  };

  /// The loop is the main thread's and outlives the center.
  explicit NotificationCenter(RunLoop& mainLoop);
  ~NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;

  /// Calls the handler for each delivery of that name, of any object.
  Observation observe(NotificationName name, Handler handler);
  /// The same for one object alone, which need not outlive the observation; null stands for any object.
  Observation observe(NotificationName name, const void* object, Handler handler);

  /// Callable from any thread; returns at once. Delivers in a later turn of the main loop, one delivery a
  /// call, in the order of the posts of a thread. The object and the user info live until then.
  void postNotification(NotificationName name, NotificationObject object = {}, UserInfo userInfo = {});
  /// Callable from any thread; returns at once. Delivers when the main loop falls idle. A notification whose
  /// name and object equal those of one still waiting is dropped, and the waiting one keeps its place.
  void enqueueNotification(Notification notification);
  /// Delivers now, on the caller's stack, to the observers in the order of their registration. Main thread
  /// only.
  void deliver(const Notification& notification);

 private:
  struct State;

  RunLoop& mainLoop_;
  std::shared_ptr<State> state_;  ///< shared with tasks under way, which do nothing once the center is gone
};

using Observation = NotificationCenter::Observation;

}  // namespace tarvel
