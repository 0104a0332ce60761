#pragma once
#include <memory>
#include <string>

#include "foundation/InstanceCounter.h"
#include "platform/RunLoop.h"

namespace tarvel {

class AutoSaveDelegate {
 public:
  virtual ~AutoSaveDelegate() = default;
  /// Save now. Called on the main thread.
  virtual void autoSave() = 0;
};

/// Decides when a burst of changes is saved: a minute after the first of them, put off by 30, 15, 10, 10 ...
/// seconds while further changes come close to the deadline. A stream of changes less than 10 seconds apart
/// postpones the save for as long as it lasts; it comes as soon as the stream pauses.
class AutoSaveController : Counted<AutoSaveController> {
 public:
  using Counted<AutoSaveController>::liveCount;

  /// The delegate and the loop outlive the controller. The name is for logging.
  AutoSaveController(RunLoop& mainLoop, AutoSaveDelegate& delegate, std::string name);
  ~AutoSaveController();

  double normalInterval = 60.0;   ///< seconds
  double minimumInterval = 10.0;  ///< seconds

  /// Something needs saving. Callable from any thread: it works in a later turn of the main loop.
  void changed();
  /// Drops the waiting save; later changes are not noted any more.
  void finish();

  const std::string& name() const { return name_; }
  double decayingInterval() const { return decayingInterval_; }
  bool isWaiting() const { return autoSaveTimer_ != nullptr; }

 private:
  void changedOnMainThread();
  void startTimer();
  void fire();

  RunLoop& mainLoop_;
  AutoSaveDelegate& delegate_;
  std::string name_;
  double decayingInterval_ = 60.0;
  bool finished_ = false;
  std::unique_ptr<Timer> autoSaveTimer_;
  std::shared_ptr<AutoSaveController*> self_;  ///< emptied when the controller goes, for tasks under way
};

}  // namespace tarvel
