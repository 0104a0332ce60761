#pragma once
#include <string_view>
#include <vector>

#include "foundation/NotificationCenter.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel {

/// Writes down what was delivered, in order.
class NotificationRecorder {
 public:
  struct Delivery {
    std::string_view name;
    const void* object;  ///< only to be compared; it may be gone
    UserInfo userInfo;
    double seconds;  ///< monotonic time of the delivery
  };

  /// Of the names given, or by default of all there are.
  NotificationRecorder(NotificationCenter& center, const SimWorld& world);
  NotificationRecorder(NotificationCenter& center, const SimWorld& world,
                       const std::vector<NotificationName>& names);

  const std::vector<Delivery>& deliveries() const { return deliveries_; }
  std::vector<std::string_view> names() const;
  /// Of the name, and of the object unless it is null.
  std::size_t count(NotificationName name, const void* object = nullptr) const;
  void clear() { deliveries_.clear(); }

 private:
  std::vector<Delivery> deliveries_;
  std::vector<Observation> observations_;
};

}  // namespace tarvel
