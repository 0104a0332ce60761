#pragma once
#include <memory>

#include "foundation/NotificationCenter.h"
#include "ui/WindowController.h"

namespace tarvel {

/// The base of the window controllers that show model data: the same pass as a `DataLoadingView`'s, for a
/// window as a whole. Main thread.
class DataLoadingWindowController : public WindowController {
 public:
  /// The centre outlives the controller.
  DataLoadingWindowController(std::unique_ptr<Window> window, NotificationCenter& notifications);
  ~DataLoadingWindowController() override;

  /// Marks the data out of date and asks for a pass.
  virtual void needsData();
  /// The pass. Runs by itself when the loop is idle.
  virtual void performUpdates();
  /// Reads the model. A subclass must replace it, clear `isAwaitingData` in it first thing, and return if the
  /// window is closing.
  virtual void loadData();

  bool isAwaitingUpdates = false;  ///< the pass is in the idle queue
  bool isAwaitingData = false;
  // Further stages of the pass. A subclass that sets one must replace `performUpdates`, which knows no way to
  // do it.
  bool isAwaitingData2 = false;
  bool isAwaitingFilter = false;
  bool isClosing = false;  ///< set when the window closes, and final

 protected:
  NotificationCenter& notifications() const { return notifications_; }

 private:
  NotificationCenter& notifications_;
  Observation updateObservation_;
};

}  // namespace tarvel
