#pragma once
#include <functional>
#include <memory>

#include "foundation/Services.h"
#include "model/Refreshable.h"

namespace tarvel {

/// Tells when the texts on a refreshable thing read differently: when its refresh begins, ends or fails, and
/// when enough time has passed. Main thread.
class RefreshWatch {
 public:
  /// Gives the thing, or null while there is none; it may go at any time.
  using Thing = std::function<RefreshableProtocol*()>;

  RefreshWatch(const Services& services, std::function<void()> changed);
  /// Watches another thing, and says so at once. `poster` is the object under which it announces itself.
  void watch(const void* poster, Thing thing);
  /// Final: nothing is heard of any more.
  void stop();

  RefreshableProtocol* thing() const { return thing_ ? thing_() : nullptr; }
  /// The wall clock's, by which refreshes are stamped.
  Instant now() const { return services_.clock.now(); }

 private:
  void tell();

  Services services_;
  std::function<void()> changed_;
  Thing thing_;
  Observation observation_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace tarvel
