#include "todaywindow/KioskWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <memory>

#include "platform/ScreenInhibitor.h"

namespace tarvel {
namespace {

/// After the desktop has moved a window it may still be at work. One that moves it away each time is asked
/// less and less often, but never given up: the reason may pass, and nobody is there to set the window right.
constexpr std::chrono::milliseconds kFirstPatience{1'000};
constexpr std::chrono::milliseconds kLongestPatience{60'000};

/// What all kiosk windows hold together.
struct Holdings {
  std::vector<std::string> screens;
  std::unique_ptr<ScreenInhibitor::Hold> blanking;
};

Holdings& holdings() {
  static Holdings all;
  return all;
}

QScreen* screenNamed(const std::string& name) {
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->name().toStdString() == name) return screen;
  }
  return nullptr;
}

}  // namespace

KioskWindow::KioskWindow(ApplicationProtocol& application, const std::vector<KioskScreen>& screens)
    : application_(application), patience_(kFirstPatience) {
  if (!application.kioskMode()) return;
  takeScreen(screens);
  if (!kioskScreen_) return;
  setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  coverScreen();
  returning_.setSingleShot(true);
  connect(&returning_, &QTimer::timeout, this, &KioskWindow::returnToScreen);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
    if (kioskScreen_ && screen->name().toStdString() == *kioskScreen_) coverScreen();
  });
}

KioskWindow::~KioskWindow() {
  releaseScreen();
}

const std::vector<std::string>& KioskWindow::screensInUse() {
  return holdings().screens;
}

void KioskWindow::takeScreen(const std::vector<KioskScreen>& screens) {
  Holdings& held = holdings();
  for (const KioskScreen& screen : inKioskOrder(screens)) {
    if (std::find(held.screens.begin(), held.screens.end(), screen.name) != held.screens.end()) continue;
    kioskScreen_ = screen.name;
    held.screens.push_back(screen.name);
    if (ScreenInhibitor* inhibitor = application_.screenInhibitor(); inhibitor && !held.blanking)
      held.blanking = inhibitor->inhibit("Showing today's schedule");
    return;
  }
}

void KioskWindow::coverScreen() {
  if (!kioskScreen_) return;
  QScreen* screen = screenNamed(*kioskScreen_);
  if (!screen) return;  // it has gone; the window stays where the desktop has put it
  connect(screen, &QScreen::geometryChanged, this, &KioskWindow::coverScreen, Qt::UniqueConnection);
  // A full-screen window stays on its screen, whatever its frame.
  QWindow* handle = windowHandle();
  if (handle)
    connect(handle, &QWindow::screenChanged, this, &KioskWindow::coverScreenSoon, Qt::UniqueConnection);
  if (handle && handle->screen() != screen) {
    setWindowState(windowState() & ~Qt::WindowFullScreen);
    handle->setScreen(screen);
  }
  setScreen(screen);
  setGeometry(screen->geometry());
  setWindowState(windowState() | Qt::WindowFullScreen);
}

bool KioskWindow::coversScreen() const {
  const QScreen* own = kioskScreen_ ? screenNamed(*kioskScreen_) : nullptr;
  return !own || !windowHandle() || (windowHandle()->screen() == own && isFullScreen());
}

void KioskWindow::coverScreenSoon() {
  if (!returning_.isActive()) returning_.start(patience_);
}

void KioskWindow::returnToScreen() {
  if (coversScreen()) {
    patience_ = kFirstPatience;
    return;
  }
  coverScreen();
  patience_ = std::min(2 * patience_, kLongestPatience);
  returning_.start(patience_);  // to see whether it has come to stay
}

void KioskWindow::changeEvent(QEvent* event) {
  Window::changeEvent(event);
  // Wayland's way from one screen to another is to leave the first and, once that is confirmed, to cover the
  // other.
  if (event->type() == QEvent::WindowStateChange && !coversScreen()) coverScreenSoon();
}

void KioskWindow::setFrame(const Rect& frame) {
  if (!kioskScreen_) return Window::setFrame(frame);
  coverScreen();
}

void KioskWindow::performClose() {
  const bool optionHeld = QGuiApplication::keyboardModifiers() & Qt::AltModifier;
  if (application_.kioskMode() && restrictClosing && !optionHeld) return;
  Window::performClose();
}

void KioskWindow::close() {
  releaseScreen();
  Window::close();
}

void KioskWindow::releaseScreen() {
  if (!kioskScreen_) return;
  Holdings& held = holdings();
  std::erase(held.screens, *kioskScreen_);
  kioskScreen_.reset();
  if (held.screens.empty()) held.blanking.reset();
}

}  // namespace tarvel
