#include "Scenes.h"

#include <algorithm>
#include <array>

#include "SceneKit.h"

namespace tarvel::demo {
namespace {

constexpr double kLong = 1600.0;
constexpr double kShort = 1066.0;

using Draw = void (*)(Canvas&);
struct Entry {
  Draw draw;
  bool portrait;
};

constexpr std::array<Entry, 8> kScenes = {{{drawBuilding, false},
                                           {drawHall, false},
                                           {drawPlan, false},
                                           {drawResurfacer, false},
                                           {drawSkater, true},
                                           {drawSkates, true},
                                           {drawPuck, false},
                                           {drawPond, false}}};

}  // namespace

QImage sceneImage(Scene scene, int hue, std::uint64_t seed, int longSide) {
  const auto number = static_cast<std::size_t>(scene);
  const Entry& entry = kScenes.at(number);
  const double width = entry.portrait ? kShort : kLong;
  const double height = entry.portrait ? kLong : kShort;
  const double scale = longSide / kLong;
  QImage image(static_cast<int>(width * scale), static_cast<int>(height * scale), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.scale(image.width() / width, image.height() / height);
  Canvas canvas{painter, width, height, hue, Random{seed, number}};
  entry.draw(canvas);
  painter.end();
  return image;
}

namespace {

QColor hslColor(int degrees, double saturation, double lightness, double alpha) {
  return QColor::fromHslF(static_cast<float>((degrees % 360 + 360) % 360) / 360.0F,
                          static_cast<float>(saturation), static_cast<float>(lightness),
                          static_cast<float>(alpha));
}

}  // namespace

QColor Canvas::color(int turn, double saturation, double lightness, double alpha) const {
  constexpr int kIceBlue = 196;
  constexpr int kSpread = 40;
  return hslColor(kIceBlue + hue % kSpread + turn, saturation, lightness, alpha);
}

QColor Canvas::accent(int turn, double saturation, double lightness) const {
  return hslColor(hue + turn, saturation, lightness, 1.0);
}

void Canvas::fillDown(const QRectF& rect, const QColor& top, const QColor& bottom) const {
  QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  painter.fillRect(rect, gradient);
}

void Canvas::fill(const QPainterPath& path, const QBrush& brush) const {
  painter.fillPath(path, brush);
}

void Canvas::stroke(const QPainterPath& path, const QColor& strokeColor, double lineWidth) const {
  painter.strokePath(path, QPen(strokeColor, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void Canvas::glow(QPointF center, double radius, const QColor& glowColor) const {
  QColor edge = glowColor;
  edge.setAlpha(0);
  QRadialGradient gradient(center, radius);
  gradient.setColorAt(0, glowColor);
  gradient.setColorAt(1, edge);
  painter.fillRect(QRectF(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius), gradient);
}

QPointF Canvas::pointIn(const QRectF& where) {
  const double x = random.between(where.left(), where.right());
  return {x, random.between(where.top(), where.bottom())};
}

QPainterPath outline(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(points)));
  path.closeSubpath();
  return path;
}

QPainterPath ridge(Canvas& canvas, double y, double swing, int steps) {
  QPainterPath path;
  path.moveTo(0, canvas.height);
  path.lineTo(0, y + canvas.random.between(-swing, swing));
  const double step = canvas.width / steps;
  for (int i = 1; i <= steps; ++i) {
    const QPointF from = path.currentPosition();
    const QPointF to(step * i, y + canvas.random.between(-swing, swing));
    path.cubicTo(QPointF(from.x() + step / 2, from.y()), QPointF(to.x() - step / 2, to.y()), to);
  }
  path.lineTo(canvas.width, canvas.height);
  path.closeSubpath();
  return path;
}

void drawFir(const Canvas& canvas, QPointF foot, double height, const QColor& color) {
  const double x = foot.x();
  const double y = foot.y();
  canvas.painter.fillRect(QRectF(x - height * 0.03, y - height * 0.1, height * 0.06, height * 0.1),
                          color.darker(130));
  for (int tier = 0; tier < 3; ++tier) {
    const double base = y - height * (0.07 + 0.25 * tier);
    const double half = height * (0.26 - 0.06 * tier);
    canvas.fill(outline({{x - half, base}, {x + half, base}, {x, base - height * 0.43}}), color);
  }
}

void drawSnowfall(Canvas& canvas, int flakes, const QRectF& where) {
  for (int i = 0; i < flakes; ++i) {
    const double radius = canvas.random.between(1.5, 4.5);
    const QPointF center = canvas.pointIn(where);
    canvas.painter.setBrush(QColor(255, 255, 255, static_cast<int>(canvas.random.between(70, 200))));
    canvas.painter.drawEllipse(center, radius, radius);
  }
}

}  // namespace tarvel::demo
