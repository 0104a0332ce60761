#pragma once
#include <memory>
#include <string>

#include "ui/Window.h"

namespace tarvel {

/// Runs one window and owns it. The application's list of window controllers owns the controllers, and lets
/// go of one from the run loop, never from within an event of its window. Main thread.
class WindowController : public WindowDelegate {
 public:
  /// The controller becomes the window's delegate.
  explicit WindowController(std::unique_ptr<Window> window);
  /// Deletes the window, which says nothing more to anyone.
  ~WindowController() override;
  WindowController(const WindowController&) = delete;
  WindowController& operator=(const WindowController&) = delete;

  /// The class's own name, under which its windows' settings are kept.
  virtual std::string className() const = 0;
  Window* window() const { return window_.get(); }
  virtual void showWindow();

 private:
  std::unique_ptr<Window> window_;
};

}  // namespace tarvel
