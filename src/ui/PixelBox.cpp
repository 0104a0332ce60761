#include "ui/PixelBox.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tarvel {

PixelBox::PixelBox(QPainter& painter, const QRectF& rect)
    : painter_(painter), matrix_(painter.deviceTransform()) {
  const QRectF exact = matrix_.mapRect(rect);
  pixels_ = {QPointF(std::round(exact.left()), std::round(exact.top())),
             QPointF(std::round(exact.right()), std::round(exact.bottom()))};
}

double PixelBox::thickness(double width) const {
  return std::max(1.0, std::round(width * matrix_.m11()));
}

void PixelBox::fillPixels(const QRectF& pixels, const QColor& color) const {
  if (!pixels.isEmpty()) painter_.fillRect(matrix_.inverted().mapRect(pixels), color);
}

QRectF PixelBox::strip(Qt::Edge edge, double thickness) const {
  QRectF strip = pixels_;
  switch (edge) {
    case Qt::TopEdge:
      strip.setHeight(thickness);
      break;
    case Qt::BottomEdge:
      strip.setTop(strip.bottom() - thickness);
      break;
    case Qt::LeftEdge:
      strip.setWidth(thickness);
      break;
    case Qt::RightEdge:
      strip.setLeft(strip.right() - thickness);
      break;
  }
  return strip & pixels_;
}

void PixelBox::fill(const QColor& color) const {
  fillPixels(pixels_, color);
}

void PixelBox::frame(double width, const QColor& color) const {
  const double line = thickness(width);
  if (2 * line >= std::min(pixels_.width(), pixels_.height())) return fill(color);
  for (const Qt::Edge side : {Qt::LeftEdge, Qt::RightEdge}) {
    fillPixels(strip(side, line).adjusted(0.0, line, 0.0, -line), color);
  }
  fillPixels(strip(Qt::TopEdge, line), color);
  fillPixels(strip(Qt::BottomEdge, line), color);
}

void PixelBox::edge(Qt::Edge edge, double width, const QColor& color) const {
  fillPixels(strip(edge, thickness(width / 2)), color);
}

}  // namespace tarvel
