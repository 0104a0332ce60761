#pragma once
#include <memory>

#include "platform/Workspace.h"

namespace tarvel {

/// The desktop through Qt and D-Bus. Where there is no system bus, or no login manager on it, nobody hears of
/// a wake.
class QtWorkspace final : public Workspace {
 public:
  QtWorkspace();
  ~QtWorkspace() override;
  QtWorkspace(const QtWorkspace&) = delete;
  QtWorkspace& operator=(const QtWorkspace&) = delete;

  bool openUrl(const std::string& url) override;
  bool openLocation(double latitude, double longitude) override;
  /// The subscription may outlive the workspace, and then only ends.
  std::unique_ptr<Subscription> onWake(std::function<void()> handler) override;

 private:
  class WakeSubscription;
  std::shared_ptr<class SleepWatch> sleepWatch_;  ///< made with the first subscription
};

}  // namespace tarvel
