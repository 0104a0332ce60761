#pragma once
#include "auxwindows/ChimingWindow.h"

namespace tarvel {

/// What the schedule's controller asks of the window that it belongs to. Main thread.
class ScheduleHost : public ChimingWindow {
 public:
  /// What the title row offers may have changed.
  virtual void updateControls() = 0;
  /// The chime's sessions are out of date: has `ScheduleController::loadData` run at the next idle point.
  virtual void requestDataPass() = 0;
};

}  // namespace tarvel
