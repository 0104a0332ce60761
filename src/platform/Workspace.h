#pragma once
#include <functional>
#include <memory>
#include <string>

namespace tarvel {

/// The user's desktop around the application. Main thread.
class Workspace {
 public:
  /// Ends the subscription when destroyed.
  class Subscription {
   public:
    virtual ~Subscription() = default;
  };

  virtual ~Workspace() = default;
  /// Opens an http or https address in the user's browser. False, with nothing opened, for any other text or
  /// when the desktop refuses.
  virtual bool openUrl(const std::string& url) = 0;
  /// Shows a place, in degrees, in the desktop's map application, or on a map website if there is none.
  /// False, with nothing opened, for a place that isn't on the globe or when the desktop refuses.
  virtual bool openLocation(double latitude, double longitude) = 0;
  /// Calls the handler on the main thread each time the machine has woken from sleep.
  virtual std::unique_ptr<Subscription> onWake(std::function<void()> handler) = 0;
};

}  // namespace tarvel
