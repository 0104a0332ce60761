#pragma once

namespace tarvel {

/// What the photos' controller asks of the window that it belongs to. Main thread.
class PhotosHost {
 public:
  virtual ~PhotosHost() = default;
  /// What the title row offers may have changed. On the photos' pane it is to call
  /// `PhotosController::updatePane` as well.
  virtual void updateControls() = 0;
  /// What the window keeps from run to run has changed.
  virtual void markChanged() = 0;
};

}  // namespace tarvel
