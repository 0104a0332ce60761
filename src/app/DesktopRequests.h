#pragma once
#include "app/StartupNotice.h"

namespace tarvel {

class AppController;

/// What the desktop can ask of the application while it runs, by a further start or over the bus. Owned by
/// the program's start, main thread.
class DesktopRequests {
 public:
  /// The controller outlives it.
  explicit DesktopRequests(AppController& controller) : controller_(controller) {}

  /// Brings the frontmost window to the user's eyes, and opens one if there is none.
  void showYourself(const StartupNotice& notice);
  /// Shows the Today window; while no rink is known yet, whatever window there is.
  void showToday(const StartupNotice& notice);
  /// Refreshes the catalogue and the rinks that the open windows show, without a window coming to the front.
  void refresh();

 private:
  /// A request may come before the first turn of the event loop has opened any window.
  void openFirstWindows();

  AppController& controller_;
};

}  // namespace tarvel
