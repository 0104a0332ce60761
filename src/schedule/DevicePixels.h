#pragma once
#include <QColor>
#include <QRectF>
#include <QTransform>

#include "platform/Geometry.h"

class QPainter;

namespace tarvel {

/// Draws lines and rectangles with their edges on the device's pixels, so that they are sharp at every scale
/// factor. A line lies astride its place and is at least one pixel thick. For painters whose matrix moves and
/// scales alone; made for one pass of drawing.
class DevicePixels {
 public:
  explicit DevicePixels(QPainter& painter);

  void fill(const Rect& rect, const QColor& color) const;
  /// A line one logical pixel thick.
  void horizontalLine(double x1, double x2, double y, const QColor& color) const;
  void verticalLine(double x, double y1, double y2, const QColor& color) const;
  /// The lines of a rectangle, none of them drawn twice where they meet.
  void frame(const Rect& rect, double lineWidth, const QColor& color) const;
  /// What the lines of such a frame leave free, in logical pixels; empty if they meet.
  Rect insideOfFrame(const Rect& rect, double lineWidth) const;

 private:
  struct Span {
    double from;
    double to;
  };
  /// The lines of a rectangle's frame.
  struct Frame {
    Span left, right, top, bottom;
  };
  Frame frameOf(const Rect& rect, double lineWidth) const;
  /// In device pixels: where a line that lies astride `place` begins and ends.
  static Span lineSpan(double place, double scale, double offset, double lineWidth);
  QRectF logical(Span x, Span y) const;
  double snappedX(double x) const;
  double snappedY(double y) const;

  QPainter& painter_;
  QTransform matrix_;
};

}  // namespace tarvel
