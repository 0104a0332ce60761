#pragma once
#include "platform/Geometry.h"

namespace tarvel {

/// What a window asks of, and tells, the one who is in charge of it. Main thread.
class WindowDelegate {
 public:
  virtual ~WindowDelegate() = default;
  /// Asked when the user wants to close the window; false leaves it open.
  virtual bool windowShouldClose() { return true; }
  /// The window closes now, by whatever way; it is still visible and among the ordered windows.
  virtual void windowWillClose() {}
  virtual void windowDidResize() {}
  /// The frame that zooming gives; `defaultFrame` fills the screen's visible area.
  virtual Rect windowWillUseStandardFrame(const Rect& defaultFrame) { return defaultFrame; }
  /// Asked before zooming, and before zooming back, to that frame.
  virtual bool windowShouldZoom(const Rect&) { return true; }
};

}  // namespace tarvel
