#include "schedule/DevicePixels.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace tarvel {

DevicePixels::DevicePixels(QPainter& painter) : painter_(painter), matrix_(painter.deviceTransform()) {}

DevicePixels::Span DevicePixels::lineSpan(double place, double scale, double offset, double lineWidth) {
  const double thickness = std::max(1.0, std::round(lineWidth * scale));
  const double from = std::floor(place * scale + offset - thickness / 2 + 0.5);
  return {from, from + thickness};
}

double DevicePixels::snappedX(double x) const {
  return std::round(x * matrix_.m11() + matrix_.dx());
}

double DevicePixels::snappedY(double y) const {
  return std::round(y * matrix_.m22() + matrix_.dy());
}

QRectF DevicePixels::logical(Span x, Span y) const {
  return {QPointF((x.from - matrix_.dx()) / matrix_.m11(), (y.from - matrix_.dy()) / matrix_.m22()),
          QPointF((x.to - matrix_.dx()) / matrix_.m11(), (y.to - matrix_.dy()) / matrix_.m22())};
}

void DevicePixels::fill(const Rect& rect, const QColor& color) const {
  painter_.fillRect(
      logical({snappedX(rect.x), snappedX(rect.maxX())}, {snappedY(rect.y), snappedY(rect.maxY())}), color);
}

void DevicePixels::horizontalLine(double x1, double x2, double y, const QColor& color) const {
  painter_.fillRect(logical({snappedX(x1), snappedX(x2)}, lineSpan(y, matrix_.m22(), matrix_.dy(), 1.0)),
                    color);
}

void DevicePixels::verticalLine(double x, double y1, double y2, const QColor& color) const {
  painter_.fillRect(logical(lineSpan(x, matrix_.m11(), matrix_.dx(), 1.0), {snappedY(y1), snappedY(y2)}),
                    color);
}

DevicePixels::Frame DevicePixels::frameOf(const Rect& rect, double lineWidth) const {
  return {lineSpan(rect.x, matrix_.m11(), matrix_.dx(), lineWidth),
          lineSpan(rect.maxX(), matrix_.m11(), matrix_.dx(), lineWidth),
          lineSpan(rect.y, matrix_.m22(), matrix_.dy(), lineWidth),
          lineSpan(rect.maxY(), matrix_.m22(), matrix_.dy(), lineWidth)};
}

void DevicePixels::frame(const Rect& rect, double lineWidth, const QColor& color) const {
  const auto [left, right, top, bottom] = frameOf(rect, lineWidth);
  QPainterPath path;  // fills by odd and even: the inner rectangle is a hole
  path.addRect(logical({left.from, right.to}, {top.from, bottom.to}));
  if (left.to < right.from && top.to < bottom.from) {
    path.addRect(logical({left.to, right.from}, {top.to, bottom.from}));
  }
  painter_.fillPath(path, color);
}

Rect DevicePixels::insideOfFrame(const Rect& rect, double lineWidth) const {
  const auto [left, right, top, bottom] = frameOf(rect, lineWidth);
  const QRectF inside =
      logical({left.to, std::max(left.to, right.from)}, {top.to, std::max(top.to, bottom.from)});
  return {inside.x(), inside.y(), inside.width(), inside.height()};
}

}  // namespace tarvel
