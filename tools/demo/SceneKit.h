#pragma once
#include <QColor>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "Random.h"

namespace tarvel::demo {

/// What the scenes share: a painter whose units are 1600 by 1066 for a landscape and 1066 by 1600 for a
/// portrait whatever the image's size, the picture's colours, and its own stream of choices.
struct Canvas {
  QPainter& painter;
  double width;
  double height;
  int hue;
  Random random;

  /// A colour of ice, air and shade, `turn` degrees away from the picture's blue; the rest from 0 to 1.
  QColor color(int turn, double saturation, double lightness, double alpha = 1.0) const;
  /// A colour of the rink's own, for what has been painted or sewn.
  QColor accent(int turn, double saturation, double lightness) const;
  void fillDown(const QRectF& rect, const QColor& top, const QColor& bottom) const;
  void fill(const QPainterPath& path, const QBrush& brush) const;
  void stroke(const QPainterPath& path, const QColor& color, double lineWidth) const;
  QPointF pointIn(const QRectF& where);
  void glow(QPointF center, double radius, const QColor& color) const;
};

/// From point to point, closed.
QPainterPath outline(std::initializer_list<QPointF> points);

/// Ridges of hills from the left edge to the right, `y` being their mean height and `swing` how far they go
/// from it.
QPainterPath ridge(Canvas& canvas, double y, double swing, int steps);

void drawFir(const Canvas& canvas, QPointF foot, double height, const QColor& color);
void drawSnowfall(Canvas& canvas, int flakes, const QRectF& where);

void drawBuilding(Canvas& canvas);
void drawHall(Canvas& canvas);
void drawPlan(Canvas& canvas);
void drawResurfacer(Canvas& canvas);
void drawSkater(Canvas& canvas);
void drawSkates(Canvas& canvas);
void drawPuck(Canvas& canvas);
void drawPond(Canvas& canvas);

}  // namespace tarvel::demo
