#pragma once

namespace tarvel {

class WindowController;

enum class SaveFrame { no, yes };

/// What windows ask of the application that owns them. Main thread.
class ApplicationProtocol {
 public:
  virtual ~ApplicationProtocol() = default;
  /// Something that the state file keeps has been changed by the user; it is saved soon.
  virtual void markChanged() = 0;
  /// A window is closing: keeps its settings for the next window of its class, and lets go of its controller
  /// in a later turn of the loop, so that the caller may still finish.
  virtual void removeWindowController(WindowController& controller, SaveFrame saveFrame) = 0;
};

}  // namespace tarvel
