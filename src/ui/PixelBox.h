#pragma once
#include <QColor>
#include <QRectF>
#include <QTransform>

class QPainter;

namespace tarvel {

/// A rectangle on the whole device pixels of a painter, so that what is filled of it is sharp at every scale
/// factor. Lines are at least one device pixel thick and lie inside the rectangle. For painters whose matrix
/// moves and scales alone; made for one pass of drawing.
class PixelBox {
 public:
  PixelBox(QPainter& painter, const QRectF& rect);

  /// In logical pixels.
  QRectF aligned() const { return matrix_.inverted().mapRect(pixels_); }
  void fill(const QColor& color) const;
  /// The line around the rectangle; no pixel of it is drawn twice. `width` in logical pixels, as below.
  void frame(double width, const QColor& color) const;
  /// The inner half of a line that lies astride the edge.
  void edge(Qt::Edge edge, double width, const QColor& color) const;

 private:
  double thickness(double width) const;
  void fillPixels(const QRectF& pixels, const QColor& color) const;
  QRectF strip(Qt::Edge edge, double thickness) const;

  QPainter& painter_;
  QTransform matrix_;
  QRectF pixels_;  ///< in device pixels
};

}  // namespace tarvel
