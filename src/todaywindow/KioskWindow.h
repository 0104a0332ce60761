#pragma once
#include <QTimer>
#include <chrono>
#include <optional>
#include <string>

#include "auxwindows/ApplicationProtocol.h"
#include "todaywindow/KioskScreens.h"
#include "ui/Window.h"

namespace tarvel {

/// The window of the Today display. In kiosk mode it takes the first screen that no other kiosk window has,
/// without a frame and above everything, and holds it until it closes; while any of them stands, the desktop
/// doesn't blank the screens. A screen that goes away stays its window's, which covers it again when it comes
/// back. Outside kiosk mode, and when all screens are taken, it is a window like any other. Main thread.
class KioskWindow : public Window, private Counted<KioskWindow> {
  Q_OBJECT
 public:
  using Counted<KioskWindow>::liveCount;

  /// The application outlives the window. `screens` are those that exist now.
  KioskWindow(ApplicationProtocol& application, const std::vector<KioskScreen>& screens);
  explicit KioskWindow(ApplicationProtocol& application) : KioskWindow(application, kioskScreens()) {}
  ~KioskWindow() override;

  /// The name of the screen that the window took; none for a window like any other.
  const std::optional<std::string>& kioskScreen() const { return kioskScreen_; }
  /// The screens in use by kiosk windows, in the order of taking.
  static const std::vector<std::string>& screensInUse();

  /// While set, only a close with the Alt key held closes a kiosk window.
  bool restrictClosing = false;

  /// On a screen of its own the window covers that, whatever the frame is.
  void setFrame(const Rect& frame) override;
  void performClose() override;
  void close() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void takeScreen(const std::vector<KioskScreen>& screens);
  void coverScreen();
  /// True as well while there is no screen to cover.
  bool coversScreen() const;
  /// For what no coming or going of a screen explains: one that was off and on again in a moment looks as if
  /// it had never gone, yet the desktop has moved its window.
  void coverScreenSoon();
  void returnToScreen();
  void releaseScreen();

  ApplicationProtocol& application_;
  std::optional<std::string> kioskScreen_;
  QTimer returning_;
  std::chrono::milliseconds patience_;  ///< until the next look at whether the window covers its screen
};

}  // namespace tarvel
