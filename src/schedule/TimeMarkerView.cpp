#include "schedule/TimeMarkerView.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/NamedColors.h"

namespace tarvel {
namespace {

QPainterPath triangle(QPointF a, QPointF b, QPointF c) {
  QPainterPath path(a);
  path.lineTo(b);
  path.lineTo(c);
  path.closeSubpath();
  return path;
}

}  // namespace

TimeMarkerView::TimeMarkerView(double width, QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setMarkerRect({-kTimeMarkerWidth, -kTimeMarkerHeight / 2, width + 2 * kTimeMarkerWidth, kTimeMarkerHeight});
}

void TimeMarkerView::setMarkerRect(const Rect& rect) {
  if (rect == rect_) return;
  rect_ = rect;
  setGeometry(QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect());
  update();
}

void TimeMarkerView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect_.x - x(), rect_.y - y());
  const QColor red = toQColor(kTimeMarkerColor);
  const double middle = rect_.height / 2;
  const double right = rect_.width - kTimeMarkerWidth;
  painter.fillRect(
      QRectF(kTimeMarkerWidth, middle - kTimeMarkerLine / 2, right - kTimeMarkerWidth, kTimeMarkerLine), red);
  painter.fillPath(triangle({kTimeMarkerWidth, middle}, {0.0, 0.0}, {0.0, kTimeMarkerHeight}), red);
  painter.fillPath(triangle({right, middle}, {rect_.width, 0.0}, {rect_.width, kTimeMarkerHeight}), red);
}

}  // namespace tarvel
