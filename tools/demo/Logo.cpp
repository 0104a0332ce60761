#include "Logo.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cmath>

namespace tarvel::demo {
namespace {

/// The marks are drawn on a square of 100 units.
constexpr double kUnits = 100.0;
constexpr double kPi = 3.14159265358979323846;

struct Ink {
  QColor main;
  QColor accent;
  QColor soft;
};

Ink inkOf(int hue, Appearance appearance) {
  const auto color = [&](int turn, double saturation, double lightness) {
    return QColor::fromHslF(static_cast<float>((hue + turn) % 360) / 360.0F, static_cast<float>(saturation),
                            static_cast<float>(lightness));
  };
  if (appearance == Appearance::dark)
    return {color(0, 0.62, 0.70), color(32, 0.80, 0.76), color(0, 0.45, 0.86)};
  return {color(0, 0.62, 0.34), color(32, 0.72, 0.46), color(0, 0.48, 0.60)};
}

QPainterPath polygon(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(points)));
  path.closeSubpath();
  return path;
}

void stroke(QPainter& painter, const QPainterPath& path, const QColor& color, double width) {
  painter.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

/// The long shallow curve of a blade, that most marks stand on.
void drawBlade(QPainter& painter, const QColor& color, double y) {
  QPainterPath blade;
  blade.moveTo(16, y);
  blade.cubicTo(36, y + 7, 64, y + 7, 80, y + 2);
  blade.quadTo(88, y - 1, 88, y - 8);
  stroke(painter, blade, color, 5);
}

void drawTree(QPainter& painter, const Ink& ink) {
  painter.fillRect(QRectF(46.5, 70, 7, 10), ink.accent);
  painter.fillPath(polygon({{50, 36}, {80, 72}, {20, 72}}), ink.main);
  painter.fillPath(polygon({{50, 21}, {73, 51}, {27, 51}}), ink.soft);
  painter.fillPath(polygon({{50, 6}, {66, 31}, {34, 31}}), ink.main);
  drawBlade(painter, ink.accent, 86);
}

void drawLantern(QPainter& painter, const Ink& ink) {
  QPainterPath handle;
  handle.moveTo(36, 26);
  handle.cubicTo(36, 4, 64, 4, 64, 26);
  stroke(painter, handle, ink.main, 5);
  QPainterPath body;
  body.addRoundedRect(QRectF(28, 30, 44, 50), 11, 11);
  painter.fillPath(body, ink.main);
  QPainterPath flame;
  flame.moveTo(50, 37);
  flame.cubicTo(66, 52, 62, 70, 50, 71);
  flame.cubicTo(38, 70, 34, 52, 50, 37);
  painter.fillPath(flame, ink.accent);
  stroke(painter, polygon({{26, 27}, {74, 27}}), ink.main, 6);
  drawBlade(painter, ink.soft, 88);
}

void drawMountain(QPainter& painter, const Ink& ink) {
  QPainterPath disc;
  disc.addEllipse(QPointF(50, 50), 44, 44);
  painter.setClipPath(disc);
  painter.fillPath(disc, ink.soft);
  painter.fillPath(polygon({{70, 32}, {106, 84}, {34, 84}}), ink.accent);
  painter.fillPath(polygon({{40, 20}, {88, 84}, {-8, 84}}), ink.main);
  painter.fillPath(polygon({{40, 20}, {54, 39}, {45, 36}, {39, 43}, {33, 36}, {26, 39}}), Qt::white);
  painter.fillRect(QRectF(0, 74, 100, 26), Qt::white);
  painter.setClipping(false);
  stroke(painter, disc, ink.main, 4);
  QPainterPath trace;
  trace.moveTo(20, 82);
  trace.cubicTo(40, 92, 60, 76, 78, 84);
  stroke(painter, trace, ink.main, 3.5);
}

void drawWave(QPainter& painter, const Ink& ink) {
  const std::array colors = {ink.soft, ink.accent, ink.main};
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const double y = 34 + 20 * static_cast<double>(i);
    QPainterPath wave;
    wave.moveTo(8, y + 8);
    wave.cubicTo(22, y - 16, 38, y - 16, 50, y);
    wave.cubicTo(62, y + 16, 78, y + 16, 92, y - 8);
    stroke(painter, wave, colors.at(i), 10);
  }
}

void drawSun(QPainter& painter, const Ink& ink) {
  for (int i = 0; i <= 6; ++i) {
    const double angle = kPi * (0.03 + 0.94 * i / 6.0);
    QPainterPath ray;
    ray.moveTo(50 - 33 * std::cos(angle), 62 - 33 * std::sin(angle));
    ray.lineTo(50 - 45 * std::cos(angle), 62 - 45 * std::sin(angle));
    stroke(painter, ray, ink.accent, 6);
  }
  QPainterPath sun;
  sun.moveTo(26, 64);
  sun.arcTo(QRectF(26, 40, 48, 48), 180, -180);
  sun.closeSubpath();
  painter.fillPath(sun, ink.main);
  stroke(painter, polygon({{10, 73}, {90, 73}}), ink.main, 5.5);
  stroke(painter, polygon({{24, 84}, {76, 84}}), ink.soft, 5.5);
}

void drawCrown(QPainter& painter, const Ink& ink) {
  painter.fillPath(polygon({{14, 70}, {10, 28}, {33, 50}, {50, 14}, {67, 50}, {90, 28}, {86, 70}}), ink.main);
  painter.fillPath(polygon({{50, 14}, {59, 34}, {50, 56}, {41, 34}}), ink.soft);
  painter.setBrush(ink.accent);
  for (const QPointF point : {QPointF(10, 25), QPointF(50, 10), QPointF(90, 25)})
    painter.drawEllipse(point, 6, 6);
  drawBlade(painter, ink.accent, 84);
}

void drawBirch(QPainter& painter, const Ink& ink) {
  QPainterPath frame;
  frame.addRoundedRect(QRectF(7, 7, 86, 86), 20, 20);
  painter.fillPath(frame, ink.main);
  painter.setClipPath(frame);
  const std::array<double, 3> trunks = {24, 46, 69};
  for (std::size_t i = 0; i < trunks.size(); ++i) {
    const double x = trunks.at(i);
    painter.fillRect(QRectF(x, 0, 11, 80), QColor(246, 247, 250));
    for (int k = 0; k < 4; ++k) {
      const double y = 16 + 17 * k + 6 * static_cast<double>(i % 2);
      painter.fillRect(QRectF(x + (k % 2 == 0 ? 0 : 5), y, 6, 3), ink.main);
    }
  }
  painter.fillRect(QRectF(0, 76, 100, 30), ink.accent);
  painter.setClipping(false);
}

void drawAnchor(QPainter& painter, const Ink& ink) {
  QPainterPath ring;
  ring.addEllipse(QPointF(50, 17), 8, 8);
  stroke(painter, ring, ink.accent, 6);
  QPainterPath shaft;
  shaft.moveTo(50, 27);
  shaft.lineTo(50, 88);
  shaft.moveTo(33, 40);
  shaft.lineTo(67, 40);
  stroke(painter, shaft, ink.main, 8);
  QPainterPath arms;
  arms.moveTo(15, 60);
  arms.cubicTo(17, 80, 33, 89, 50, 89);
  arms.cubicTo(67, 89, 83, 80, 85, 60);
  stroke(painter, arms, ink.main, 8);
  painter.fillPath(polygon({{8, 64}, {15, 48}, {25, 63}}), ink.main);
  painter.fillPath(polygon({{92, 64}, {85, 48}, {75, 63}}), ink.main);
}

void drawStar(QPainter& painter, const Ink& ink) {
  for (int i = 0; i < 6; ++i) {
    painter.save();
    painter.translate(50, 50);
    painter.rotate(60.0 * i);
    QPainterPath arm;
    arm.moveTo(0, -12);
    arm.lineTo(0, -43);
    stroke(painter, arm, ink.main, 6.5);
    QPainterPath twig;
    twig.moveTo(-11, -39);
    twig.lineTo(0, -27);
    twig.lineTo(11, -39);
    stroke(painter, twig, ink.soft, 5.5);
    painter.restore();
  }
  painter.setBrush(ink.accent);
  painter.drawEllipse(QPointF(50, 50), 11, 11);
}

void drawRibbon(QPainter& painter, const Ink& ink) {
  const std::array colors = {ink.accent, ink.main, ink.soft};
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const double x = 21 * static_cast<double>(i);
    QPainterPath band;
    band.moveTo(12 + x, 78);
    band.cubicTo(0 + x, 50, 34 + x, 40, 24 + x, 10);
    band.lineTo(35 + x, 10);
    band.cubicTo(48 + x, 42, 16 + x, 54, 28 + x, 78);
    band.closeSubpath();
    painter.fillPath(band, colors.at(i));
  }
  drawBlade(painter, ink.main, 88);
}

void drawLeaf(QPainter& painter, const Ink& ink) {
  QPainterPath leaf;
  leaf.moveTo(14, 86);
  leaf.cubicTo(0, 34, 40, 10, 88, 12);
  leaf.cubicTo(92, 62, 62, 96, 14, 86);
  painter.fillPath(leaf, ink.main);
  QPainterPath vein;
  vein.moveTo(8, 93);
  vein.cubicTo(30, 64, 48, 46, 70, 30);
  vein.moveTo(38, 60);
  vein.lineTo(36, 40);
  vein.moveTo(50, 48);
  vein.lineTo(70, 52);
  stroke(painter, vein, ink.accent, 5);
}

void drawGem(QPainter& painter, const Ink& ink) {
  painter.fillPath(polygon({{28, 16}, {72, 16}, {93, 42}, {50, 92}, {7, 42}}), ink.main);
  painter.fillPath(polygon({{28, 16}, {50, 42}, {7, 42}}), ink.soft);
  painter.fillPath(polygon({{72, 16}, {93, 42}, {50, 42}}), ink.accent);
  painter.fillPath(polygon({{33, 42}, {67, 42}, {50, 92}}), ink.soft);
}

using Draw = void (*)(QPainter&, const Ink&);
constexpr std::array<Draw, 12> kMarks = {drawTree, drawLantern, drawMountain, drawWave,
                                         drawSun,  drawCrown,   drawBirch,    drawAnchor,
                                         drawStar, drawRibbon,  drawLeaf,     drawGem};

}  // namespace

QImage logoImage(LogoMark mark, int hue, Appearance appearance, int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.scale(side / kUnits, side / kUnits);
  kMarks.at(static_cast<std::size_t>(mark))(painter, inkOf(hue, appearance));
  painter.end();
  return image;
}

}  // namespace tarvel::demo
