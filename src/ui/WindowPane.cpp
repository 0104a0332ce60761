#include "ui/WindowPane.h"

#include <QPainter>
#include <utility>

#include "ui/PixelBox.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr double kFrameLine = 1.0;
constexpr int kFocusRingReach = 5;
constexpr double kRingRadiusX = 3.0;
constexpr double kRingRadiusY = 4.0;
struct RingStroke {
  double outset;
  float alpha;
};
constexpr RingStroke kRingStrokes[] = {{1.0, 0.5F}, {2.0, 0.35F}, {3.0, 0.2F}};

}  // namespace

WindowPane::WindowPane(NotificationCenter& notifications, ObserverCensus& census, QWidget* parent)
    : QWidget(parent) {
  checkObservation_ = notifications.observe(
      kCheckObservers, [&census](const Notification&) { census.checkObservers("WindowPane"); });
}

void WindowPane::close() {
  isClosing_ = true;
  if (window_) disconnect(window_, nullptr, this, nullptr);
  checkObservation_ = {};
  updateFocusRing();
}

void WindowPane::setFocusView(QWidget* view) {
  if (view == focusView_) return;
  updateAround(std::exchange(focusView_, view));
  updateAround(view);
}

void WindowPane::setBgColor(std::optional<ColorSource> color) {
  if (color == bgColor_) return;
  bgColor_ = std::move(color);
  setAttribute(Qt::WA_OpaquePaintEvent, isOpaque() && bgColor_->resolve(appearanceOf(this)).alpha() == 255);
  update();
}

void WindowPane::setFrameColor(std::optional<ColorSource> color) {
  if (color == frameColor_) return;
  frameColor_ = std::move(color);
  update();
}

void WindowPane::showEvent(QShowEvent* event) {
  observeWindow();
  QWidget::showEvent(event);
}

void WindowPane::observeWindow() {
  auto* current = qobject_cast<Window*>(window());
  if (current == window_ || isClosing_) return;
  if (window_) disconnect(window_, nullptr, this, nullptr);
  window_ = current;
  if (!current) return;
  connect(current, &Window::becameKey, this, &WindowPane::windowBecameKey);
  connect(current, &Window::resignedKey, this, &WindowPane::windowResignedKey);
  // A window may come to be the main one, or cease to, while a dialog has the keyboard.
  connect(current, &Window::becameMain, this, &WindowPane::updateFocusRing);
  connect(current, &Window::resignedMain, this, &WindowPane::updateFocusRing);
}

QRect WindowPane::frameOf(const QWidget& view) const {
  return {view.mapTo(this, QPoint(0, 0)), view.size()};
}

void WindowPane::updateAround(const QWidget* view) {
  if (!view || !isAncestorOf(view)) return;
  update(frameOf(*view).adjusted(-kFocusRingReach, -kFocusRingReach, kFocusRingReach, kFocusRingReach));
}

bool WindowPane::isInMainWindow() const {
  const auto* own = qobject_cast<const Window*>(window());
  if (!own) return false;
  if (own->isMain()) return true;
  if (own->windowModality() != Qt::WindowModal || !own->parentWidget()) return false;
  const auto* parent = qobject_cast<const Window*>(own->parentWidget()->window());
  return parent && parent->isMain();
}

void WindowPane::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (bgColor_) painter.fillRect(rect(), bgColor_->resolve(appearanceOf(this)));
  if (frameColor_) PixelBox(painter, rect()).frame(kFrameLine, frameColor_->resolve(appearanceOf(this)));
  if (focusView_ && isAncestorOf(focusView_) && hideCnt == 0 && isInMainWindow()) paintFocusRing(painter);
}

void WindowPane::paintFocusRing(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  QColor ringColor = color(kKeyboardFocusIndicator, this);
  for (const auto& [outset, alpha] : kRingStrokes) {
    ringColor.setAlphaF(alpha);
    painter.setPen(QPen(ringColor, 1.0));
    // The middle of the line, such that the line itself fills whole pixels within the outset.
    const double reach = outset - 0.5;
    const QRectF ring = QRectF(frameOf(*focusView_)).adjusted(-reach, -reach, reach, reach);
    painter.drawRoundedRect(ring, kRingRadiusX, kRingRadiusY);
  }
}

}  // namespace tarvel
