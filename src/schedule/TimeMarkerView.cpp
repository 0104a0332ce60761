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

TimeMarkerView::TimeMarkerView(double width, QWidget* parent, const TimeMarkerShape& shape)
    : QWidget(parent), shape_(shape) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setMarkerRect(
      {-shape.markerWidth, -shape.markerHeight / 2, width + 2 * shape.markerWidth, shape.markerHeight});
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
  const auto& [line, left, height] = shape_;
  const double right = rect_.width - left;
  painter.fillRect(QRectF(left, middle - line / 2, right - left, line), red);
  painter.fillPath(triangle({left, middle}, {0.0, 0.0}, {0.0, height}), red);
  painter.fillPath(triangle({right, middle}, {rect_.width, 0.0}, {rect_.width, height}), red);
}

}  // namespace tarvel
