#include "ui/Window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/AccessibleFactory.h"
#include "ui/ScreenAreas.h"
#include "ui/SystemAppearance.h"

namespace tarvel {

namespace {

/// All windows, the front one first, hidden ones too.
std::vector<Window*>& allWindows() {
  static std::vector<Window*> windows;
  return windows;
}

Window* theKeyWindow = nullptr;
Window* theMainWindow = nullptr;
FrameMargins lastKnownMargins;

Window* windowAbove(QWidget* widget) {
  for (; widget; widget = widget->parentWidget()) {
    if (auto* window = qobject_cast<Window*>(widget)) return window;
  }
  return nullptr;
}

/// While the manager takes a window into its frame, that frame may have no size yet, and the toolkit measures
/// margins below zero.
bool areMeasured(const QMargins& margins) {
  return std::min({margins.left(), margins.top(), margins.right(), margins.bottom()}) >= 0;
}

/// The toolkit's positions mean nothing there.
bool isToldItsPlace() {
  return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

int asPixels(double length) {
  return static_cast<int>(std::lround(length));
}

}  // namespace

Window::Window(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags | Qt::Window) {
  allWindows().push_back(this);
  setAccessibleRole(*this, flags.testFlag(Qt::Dialog) ? QAccessible::Dialog : QAccessible::Window);
  if (const SystemAppearance* system = SystemAppearance::instance()) {
    // The application's palette doesn't reach a window that has one of its own, and the accent may have
    // changed.
    connect(system, &SystemAppearance::changed, this, [this] {
      if (chosenAppearance_) setPalette(paletteFor(*chosenAppearance_));
    });
  }
}

Window::~Window() {
  std::erase(allWindows(), this);
  if (theKeyWindow == this) theKeyWindow = nullptr;
  if (theMainWindow == this) theMainWindow = nullptr;
}

std::vector<Window*> Window::orderedWindows() {
  std::vector<Window*> visible;
  std::copy_if(allWindows().begin(), allWindows().end(), std::back_inserter(visible),
               [](const Window* window) { return window->isVisible(); });
  return visible;
}

Window* Window::keyWindow() {
  return theKeyWindow;
}
Window* Window::mainWindow() {
  return theMainWindow;
}

void Window::updateKeyAndMain() {
  QWidget* active = QApplication::activeWindow();
  auto* key = qobject_cast<Window*>(active);
  if (key && !key->isVisible()) key = nullptr;
  Window* main = active ? windowAbove(active) : nullptr;
  if (active && (!main || !main->canBecomeMain())) main = theMainWindow;
  if (main && !main->isVisible()) main = nullptr;
  const QPointer<Window> oldKey = std::exchange(theKeyWindow, key);
  const QPointer<Window> oldMain = std::exchange(theMainWindow, main);
  const QPointer<Window> newKey = key;
  const QPointer<Window> newMain = main;
  if (oldKey && oldKey != newKey) emit oldKey->resignedKey();
  if (oldMain && oldMain != newMain) emit oldMain->resignedMain();
  // Who heard of that may have changed it again.
  if (newKey && oldKey != newKey && newKey->isKey()) emit newKey->becameKey();
  if (newMain && oldMain != newMain && newMain->isMain()) emit newMain->becameMain();
}

bool Window::isDecorated() const {
  return !(windowFlags() & Qt::FramelessWindowHint) && !isFullScreen();
}

FrameMargins Window::margins() const {
  if (!isDecorated()) return {};
  const QMargins known = windowHandle() ? windowHandle()->frameMargins() : QMargins();
  if (known.isNull() || !areMeasured(known)) return lastKnownMargins;
  return {double(known.left()), double(known.top()), double(known.right()), double(known.bottom())};
}

void Window::noteMargins() {
  if (!isVisible() || !isDecorated() || followsManager()) return;
  if (windowHandle() && !areMeasured(windowHandle()->frameMargins())) return;
  const FrameMargins known = margins();
  lastKnownMargins = known;
  if (known != limitsMargins_) applyLimits();
  if (isTitleBarPlaced_ || known == FrameMargins{}) return;
  isTitleBarPlaced_ = true;
  // Only now is it known what the manager puts around the content.
  Rect placed = requestedFrame_.value_or(frame());
  const Rect area = visibleFrame();
  const bool tooTall = placed.height > area.height;
  if (tooTall) placed.height = area.height;
  if (tooTall || placed.maxY() > area.maxY()) placed.y = area.maxY() - placed.height;
  if (placed != frame()) setFrame(placed);
  requestedFrame_.reset();
}

void Window::applyLimits() {
  limitsMargins_ = margins();
  const auto contentSize = [this](Size size) {
    const Rect content = contentWithin({0.0, 0.0, size.width, size.height}, limitsMargins_);
    return QSize(asPixels(std::max(0.0, content.width)), asPixels(std::max(0.0, content.height)));
  };
  if (smallest_ != Size{}) setMinimumSize(contentSize(smallest_));
  if (largest_ != Size{}) setMaximumSize(contentSize(largest_));
}

void Window::setFrameLimits(Size smallest, Size largest) {
  smallest_ = smallest;
  largest_ = largest;
  applyLimits();
}

Rect Window::content() const {
  return fromToolkit(followsManager() ? normalGeometry() : geometry());
}

void Window::setContent(const Rect& content) {
  const QRect geometry = toToolkit(content);
  const QSize size = geometry.size().expandedTo(minimumSize()).boundedTo(maximumSize());
  setGeometry({geometry.topLeft(), size});
}

Rect Window::frame() const {
  return frameAround(fromToolkit(geometry()), margins());
}

void Window::setFrame(const Rect& frame) {
  if (followsManager()) return;
  // A frame that is only given back leaves what was restored as it was.
  if (!isTitleBarPlaced_ && frame != this->frame()) requestedFrame_ = frame;
  setContent(contentWithin(frame, margins()));
}

void Window::setFrameTopLeftPoint(Point topLeft) {
  const Rect now = frame();
  setFrame({topLeft.x, topLeft.y - now.height, now.width, now.height});
}

Point Window::cascadeTopLeftFromPoint(Point topLeft) {
  setFrameTopLeftPoint(topLeft);
  const Rect now = frame();
  return nextCascadePoint(topLeft, {now.width, now.height}, visibleFrame());
}

void Window::zoom() {
  const Rect area = visibleFrame();
  Rect target = delegate_ ? delegate_->windowWillUseStandardFrame(area) : area;
  target.width = std::min(target.width, area.width);
  target.height = std::min(target.height, area.height);
  target.x = std::clamp(target.x, area.x, area.maxX() - target.width);
  target.y = std::clamp(target.y, area.y, area.maxY() - target.height);
  const Rect now = frame();
  if (now == target && frameBeforeZoom_) target = *frameBeforeZoom_;
  if (delegate_ && !delegate_->windowShouldZoom(target)) return;
  frameBeforeZoom_ = now;
  setFrame(target);
}

std::string Window::stringWithSavedFrame() const {
  if (isToldItsPlace()) return savedFrameText({content(), screenFrame()});
  const Rect now = content();
  return savedFrameText(frameOfUntoldPlace({now.width, now.height}, restoredFrame_, screenFrame()));
}

bool Window::setFrameFromString(const std::string& text) {
  const auto saved = parseSavedFrame(text);
  if (!saved) return false;
  requestedFrame_.reset();
  restoredFrame_ = saved;
  setContent(placeOnScreens(*saved, margins(), screenAreas()));
  return true;
}

Rect Window::screenFrame() const {
  return screenAreaOf(screen()).frame;
}
Rect Window::visibleFrame() const {
  return screenAreaOf(screen()).visible;
}

void Window::moveToFront() {
  std::vector<Window*>& windows = allWindows();
  const auto found = std::find(windows.begin(), windows.end(), this);
  std::rotate(windows.begin(), found, found + 1);
}

void Window::orderFront() {
  setAttribute(Qt::WA_ShowWithoutActivating, true);
  show();
  setAttribute(Qt::WA_ShowWithoutActivating, false);
  raise();
  moveToFront();
}

void Window::makeKeyAndOrderFront() {
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  moveToFront();
}

void Window::performClose() {
  if (!delegate_ || delegate_->windowShouldClose()) close();
}

void Window::close() {
  if (isClosing_) return;
  isClosing_ = true;
  const QPointer<Window> self(this);
  if (delegate_) delegate_->windowWillClose();
  if (!self) return;
  hide();
  if (self) emit closed();
}

void Window::closeEvent(QCloseEvent* event) {
  const QPointer<Window> self(this);
  performClose();
  // The toolkit, too, asks all windows before it quits, and takes a refusal as the user's.
  event->setAccepted(!self || !isVisible());
}

void Window::setChosenAppearance(std::optional<Appearance> appearance) {
  chosenAppearance_ = appearance;
  setPalette(appearance ? paletteFor(*appearance) : QPalette());
}

void Window::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::ActivationChange) return;
  if (isActiveWindow()) {
    moveToFront();
    noteMargins();
  }
  updateKeyAndMain();
}

void Window::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  isClosing_ = false;
  if (!event->spontaneous()) moveToFront();
}

void Window::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (isKey() || isMain()) updateKeyAndMain();
}

void Window::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (isVisible()) noteMargins();
}

void Window::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (isVisible()) noteMargins();
  if (delegate_) delegate_->windowDidResize();
}

}  // namespace tarvel
