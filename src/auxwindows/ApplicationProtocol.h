#pragma once

namespace tarvel {

class ScreenInhibitor;
class WindowController;

enum class SaveFrame { no, yes };
enum class CursorHiding { off, on };

/// What windows ask of the application that owns them. Main thread.
class ApplicationProtocol {
 public:
  virtual ~ApplicationProtocol() = default;
  /// Something that the state file keeps has been changed by the user; it is saved soon.
  virtual void markChanged() = 0;
  /// A window is closing: keeps its settings for the next window of its class, and lets go of its controller
  /// in a later turn of the loop, so that the caller may still finish.
  virtual void removeWindowController(WindowController& controller, SaveFrame saveFrame) = 0;

  // What an application without these windows needn't have:
  /// Brings the Today window to the front on the rink of the frontmost main window, and opens one if there is
  /// none.
  virtual void todayWindow() {}
  /// Shows the window that sets the server's address.
  virtual void tarvelURLWindow() {}
  /// Shows the window that sets the pretend time.
  virtual void clockWindow() {}
  /// Whether the next Today window takes a whole screen.
  virtual bool kioskMode() const { return false; }
  /// Whether the pointer hides while nobody touches the machine.
  virtual void setCursorHiding(CursorHiding) {}
  /// Null where nothing keeps the screens from blanking. Outlives all windows.
  virtual ScreenInhibitor* screenInhibitor() { return nullptr; }
};

}  // namespace tarvel
