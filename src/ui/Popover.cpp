#include "ui/Popover.h"

#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <utility>

#include "ui/AccessibleFactory.h"
#include "ui/NamedColors.h"

namespace tarvel {
namespace {

constexpr double kBorderWidth = 1.0;
/// There is no shadow, which only some screens could show, so a border that stands out from any surface.
constexpr NamedColor kBorderColor = kInactiveSelectedContentFrame;

/// From this many device pixels to a logical one on, a window's mask, which goes by logical pixels, is
/// coarser than its drawing.
constexpr double kFineScale = 1.5;

/// The pixels whose middle the outline holds.
QRegion regionWithin(const QPainterPath& outline) {
  QBitmap bitmap(outline.boundingRect().toAlignedRect().size());
  bitmap.clear();
  QPainter(&bitmap).fillPath(outline, Qt::color1);
  return QRegion(bitmap);
}

/// Every pixel that the outline touches.
QRegion regionCovering(const QPainterPath& outline) {
  QImage smooth(outline.boundingRect().toAlignedRect().size(), QImage::Format_ARGB32_Premultiplied);
  smooth.fill(Qt::transparent);
  QPainter painter(&smooth);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(outline, Qt::black);
  painter.end();
  QRegion region;
  for (int y = 0; y < smooth.height(); ++y) {
    int first = 0;
    int last = smooth.width() - 1;
    while (first <= last && qAlpha(smooth.pixel(first, y)) == 0) ++first;
    while (last > first && qAlpha(smooth.pixel(last, y)) == 0) --last;
    region += QRect(first, y, last + 1 - first, 1);
  }
  return region;
}

}  // namespace

Popover::Popover(QWidget* content)
    : QWidget(nullptr, Qt::Popup | Qt::FramelessWindowHint), content_(content) {
  setAttribute(Qt::WA_TranslucentBackground);
  // Or a window that has chosen its own appearance would open popovers in the application's.
  setAttribute(Qt::WA_WindowPropagation);
  setAccessibleRole(*this, QAccessible::Dialog);
  content_->setParent(this);
  content_->installEventFilter(this);
}

Popover::~Popover() {
  tellClosed();
}

void Popover::tellClosed() {
  if (const auto callback = std::exchange(closed, nullptr)) callback();
}

void Popover::showRelativeTo(QWidget& anchor, const QRect& bounds, PopoverEdge preferred) {
  setParent(anchor.window(), windowFlags());
  anchor_ = &anchor;
  bounds_ = bounds;
  preferred_ = preferred;
  setAccessibleName(content_->accessibleName());
  anchor.installEventFilter(this);
  connect(&anchor, &QObject::destroyed, this, [this] {
    anchor_ = nullptr;
    close();
  });
  anchor.window()->installEventFilter(this);
  content_->show();
  place();
  if (content_->focusProxy()) {
    content_->setFocus(Qt::PopupFocusReason);
  } else {
    focusNextPrevChild(true);
  }
  show();
}

QSize Popover::contentSize() const {
  QSize size = content_->sizeHint().expandedTo(content_->minimumSize()).boundedTo(content_->maximumSize());
  if (content_->hasHeightForWidth()) size.setHeight(content_->heightForWidth(size.width()));
  return size;
}

bool Popover::isFine() const {
  return devicePixelRatioF() >= kFineScale;
}

QRect Popover::anchorOnScreen() const {
  return {anchor_->mapToGlobal(bounds_.topLeft()), bounds_.size()};
}

void Popover::place() {
  placement_ =
      placePopover(anchorOnScreen(), contentSize(), anchor_->screen()->availableGeometry(), preferred_);
  setGeometry(placement_.frame);
  content_->setGeometry(placement_.body());
  // Where nothing composes the windows of the screen, their transparent parts show black, so the window ends
  // where the drawing does.
  const QPainterPath outline = placement_.outline(0.0);
  setMask(isFine() ? regionCovering(outline) : regionWithin(outline));
  update();
}

void Popover::placeAgain() {
  if (isVisible() && anchor_) place();
}

bool Popover::event(QEvent* event) {
  // From a content that has no layout of its own.
  if (event->type() == QEvent::LayoutRequest) placeAgain();
  return QWidget::event(event);
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == content_) {
    if (type == QEvent::LayoutRequest) placeAgain();
  } else if (type == QEvent::Hide) {
    close();
  } else if (type == QEvent::Move || type == QEvent::Resize) {
    placeAgain();
  }
  return QWidget::eventFilter(watched, event);
}

void Popover::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  tellClosed();
}

void Popover::mousePressEvent(QMouseEvent* event) {
  if (mask().contains(event->position().toPoint())) return;
  // The toolkit gives the press on to what lies there, which would open the popover again.
  const bool onAnchor = anchor_ && anchorOnScreen().contains(event->globalPosition().toPoint());
  setAttribute(Qt::WA_NoMouseReplay, onAnchor);
  close();
}

void Popover::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // What smoothing leaves half transparent at the corners would show half black there.
  if (!isFine()) {
    for (const QRect& part : mask()) painter.fillRect(part, color(kBorderColor, this));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color(kBorderColor, this), kBorderWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(color(kContentBackground, this));
  painter.drawPath(placement_.outline(kBorderWidth / 2));
}

}  // namespace tarvel
