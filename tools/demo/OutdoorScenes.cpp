#include <cmath>

#include "SceneKit.h"

namespace tarvel::demo {
namespace {

void drawBackdrop(Canvas& canvas, double horizon, double lightness) {
  for (int i = 0; i < 3; ++i) {
    canvas.fill(ridge(canvas, horizon - 170 + 70 * i, 60 - 12 * i, 6 + i),
                canvas.color(8 * i, 0.26, lightness - 0.09 * i));
  }
}

void drawWindows(Canvas& canvas, const QRectF& wall, int count) {
  const double gap = wall.width() / count;
  for (int i = 0; i < count; ++i) {
    const QRectF window(wall.left() + gap * i + gap * 0.18, wall.top(), gap * 0.64, wall.height());
    canvas.fillDown(window, QColor(255, 233, 184), QColor(255, 205, 128));
    canvas.painter.fillRect(QRectF(window.center().x() - 2, window.top(), 4, window.height()),
                            canvas.color(0, 0.25, 0.30));
  }
}

void drawLightChain(Canvas& canvas, QPointF from, QPointF to, double sag) {
  QPainterPath wire;
  wire.moveTo(from);
  wire.quadTo(QPointF((from.x() + to.x()) / 2, (from.y() + to.y()) / 2 + sag), to);
  canvas.stroke(wire, QColor(20, 26, 40, 160), 3);
  for (int i = 1; i < 14; ++i) {
    const QPointF bulb = wire.pointAtPercent(i / 14.0) + QPointF(0, 8);
    canvas.glow(bulb, 34, QColor(255, 214, 140, 120));
    canvas.painter.setBrush(QColor(255, 240, 205));
    canvas.painter.drawEllipse(bulb, 6, 6);
  }
}

void drawPondIce(Canvas& canvas, QPointF moon) {
  QPainterPath ice;
  ice.addEllipse(QPointF(800, 850), 900, 270);
  QLinearGradient shine(0, 590, 0, 1066);
  shine.setColorAt(0, canvas.color(40, 0.42, 0.78));
  shine.setColorAt(1, canvas.color(0, 0.46, 0.52));
  canvas.fill(ice, shine);
  canvas.painter.save();
  canvas.painter.setClipPath(ice);
  canvas.glow({moon.x(), 720}, 330, QColor(255, 248, 225, 110));
  for (int i = 0; i < 9; ++i) {
    QPainterPath trace;
    const double y = canvas.random.between(700, 1010);
    const double x = canvas.random.between(100, 1000);
    trace.moveTo(x, y);
    trace.cubicTo(x + 170, y - 60, x + 260, y + 70, x + 430, y - 10);
    canvas.stroke(trace, QColor(255, 255, 255, 90), 3);
  }
  canvas.painter.restore();
}

}  // namespace

void drawBuilding(Canvas& canvas) {
  const double ground = 800;
  canvas.fillDown({0, 0, canvas.width, ground}, canvas.color(0, 0.45, 0.78), canvas.color(30, 0.55, 0.93));
  drawBackdrop(canvas, ground - 90, 0.74);
  canvas.fillDown({0, ground - 40, canvas.width, canvas.height - ground + 40}, QColor(250, 251, 254),
                  canvas.color(0, 0.25, 0.87));
  const QRectF wall(300, 470, 1000, 330);
  canvas.glow({800, 800}, 640, QColor(255, 214, 150, 90));
  canvas.fillDown(wall, canvas.accent(0, 0.26, 0.44), canvas.accent(0, 0.28, 0.36));
  // The vault over the ice, with snow on it.
  QPainterPath roof;
  roof.moveTo(270, 478);
  roof.quadTo(800, 210, 1330, 478);
  roof.closeSubpath();
  canvas.fill(roof, canvas.accent(0, 0.32, 0.30));
  QPainterPath snow;
  snow.moveTo(262, 478);
  snow.quadTo(800, 190, 1338, 478);
  snow.quadTo(800, 250, 262, 478);
  canvas.fill(snow, QColor(252, 253, 255));
  drawWindows(canvas, {340, 560, 330, 130}, 4);
  drawWindows(canvas, {930, 560, 330, 130}, 4);
  const QRectF door(715, 590, 170, 210);
  canvas.fillDown(door, QColor(255, 238, 200), QColor(255, 208, 136));
  canvas.painter.fillRect(QRectF(797, 590, 6, 210), canvas.color(0, 0.25, 0.30));
  canvas.fill(outline({{690, 590}, {910, 590}, {890, 556}, {710, 556}}), canvas.accent(40, 0.55, 0.48));
  canvas.fill(outline({{715, 800}, {885, 800}, {1010, 1066}, {590, 1066}}), canvas.color(0, 0.12, 0.80));
  for (const double x : {90.0, 190.0, 1420.0, 1530.0}) {
    const double foot = ground + canvas.random.between(10, 50);
    drawFir(canvas, {x, foot}, canvas.random.between(260, 400), canvas.color(-62, 0.26, 0.28));
  }
  drawSnowfall(canvas, 110, {0, 0, canvas.width, canvas.height});
}

void drawPond(Canvas& canvas) {
  const double shore = 560;
  canvas.fillDown({0, 0, canvas.width, shore}, canvas.color(20, 0.48, 0.20), canvas.color(70, 0.50, 0.62));
  for (int i = 0; i < 60; ++i) {
    const double radius = canvas.random.between(0.8, 2.4);
    canvas.painter.setBrush(QColor(255, 255, 255, 190));
    canvas.painter.drawEllipse(canvas.pointIn({0, 0, canvas.width, 330}), radius, radius);
  }
  const QPointF moon(canvas.random.between(1040, 1340), 170);
  canvas.glow(moon, 230, QColor(255, 247, 220, 120));
  canvas.painter.setBrush(QColor(255, 249, 230));
  canvas.painter.drawEllipse(moon, 62, 62);
  drawBackdrop(canvas, shore - 10, 0.42);
  canvas.fill(ridge(canvas, shore - 20, 14, 7), QColor(228, 236, 246));
  drawPondIce(canvas, moon);
  for (int i = 0; i < 15; ++i) {
    const bool left = i % 2 == 0;
    const double x = left ? canvas.random.between(-20, 430) : canvas.random.between(1190, 1620);
    const double foot = shore + canvas.random.between(-15, 45);
    const double height = canvas.random.between(190, 400);
    drawFir(canvas, {x, foot}, height, canvas.color(-50, 0.34, canvas.random.between(0.13, 0.20)));
  }
  drawLightChain(canvas, {230, 330}, {820, 300}, 150);
  drawLightChain(canvas, {820, 300}, {1400, 340}, 150);
}

}  // namespace tarvel::demo
