#pragma once
#include <memory>
#include <optional>

#include "foundation/Services.h"
#include "model/DataModel.h"

namespace tarvel {

/// Tries refreshes that found no connection again as soon as the machine is on a network again, rather than
/// when their ten minutes are over. One in the process, beside the data model, which outlives it. Main
/// thread.
class NetworkReturn {
 public:
  NetworkReturn(const Services& services, DataModel& model);

  /// The machine has come onto a network. The first moments on one seldom resolve a name, so the refreshes
  /// begin 2 seconds later, and never within 30 seconds of the last time: a connection that comes and goes
  /// hammers no server.
  void networkCameBack();
  bool isWaiting() const { return timer_ != nullptr; }

 private:
  void tryAgain();

  Services services_;
  DataModel& model_;
  std::optional<double> lastTry_;  ///< monotonic seconds
  std::unique_ptr<Timer> timer_;   ///< null while none waits
};

}  // namespace tarvel
