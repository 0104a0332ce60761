#include <array>
#include <cmath>

#include "SceneKit.h"

namespace tarvel::demo {
namespace {

const QColor kSkin(226, 184, 154);
const QColor kHair(58, 44, 40);

void fillIce(Canvas& canvas, int scratches) {
  canvas.fillDown({0, 0, canvas.width, canvas.height}, canvas.color(0, 0.38, 0.86),
                  canvas.color(16, 0.44, 0.95));
  for (int i = 0; i < scratches; ++i) {
    QPainterPath scratch;
    const QPointF from = canvas.pointIn({-100, 0, canvas.width + 100, canvas.height});
    const double length = canvas.random.between(160, 620);
    const double bend = canvas.random.between(-160, 160);
    scratch.moveTo(from);
    scratch.quadTo(from + QPointF(length / 2, bend), from + QPointF(length, bend / 3));
    canvas.stroke(scratch, QColor(255, 255, 255, static_cast<int>(canvas.random.between(60, 150))),
                  canvas.random.between(1, 3.5));
  }
}

/// One boot with its blade, toe to the right; the origin is below the middle of the sole.
void drawBoot(Canvas& canvas, const QColor& leather) {
  QPainterPath boot;
  boot.moveTo(-150, -60);
  boot.lineTo(-150, -330);
  boot.quadTo(-75, -375, 0, -330);
  boot.cubicTo(4, -220, 20, -190, 90, -172);
  boot.cubicTo(180, -150, 216, -120, 210, -60);
  boot.closeSubpath();
  QLinearGradient shade(-150, 0, 210, 0);
  shade.setColorAt(0, leather.darker(112));
  shade.setColorAt(0.6, leather);
  shade.setColorAt(1, leather.darker(106));
  canvas.fill(boot, shade);
  canvas.painter.fillRect(QRectF(-158, -66, 372, 26), QColor(66, 50, 44));
  canvas.fill(outline({{-158, -40}, {-70, -40}, {-84, 0}, {-150, 0}}), QColor(66, 50, 44));
  for (int i = 0; i < 6; ++i) {
    QPainterPath lace;
    const double y = -318 + 24.0 * i;
    lace.moveTo(-34 + 5.0 * i, y);
    lace.lineTo(10 + 9.0 * i, y + 8);
    canvas.stroke(lace, canvas.accent(0, 0.45, 0.55), 7);
  }
  const QColor steel(176, 188, 202);
  canvas.painter.fillRect(QRectF(-128, 0, 30, 36), steel);
  canvas.painter.fillRect(QRectF(120, -42, 30, 78), steel);
  QPainterPath blade;
  blade.moveTo(-178, 34);
  blade.lineTo(198, 34);
  blade.quadTo(222, 30, 224, 4);
  blade.quadTo(238, 44, 200, 58);
  blade.quadTo(20, 68, -178, 58);
  blade.closeSubpath();
  QLinearGradient steelShade(0, 30, 0, 64);
  steelShade.setColorAt(0, steel.lighter(118));
  steelShade.setColorAt(1, steel.darker(118));
  canvas.fill(blade, steelShade);
}

void drawTracedRings(Canvas& canvas) {
  fillIce(canvas, 26);
  canvas.glow({540, 560}, 640, QColor(255, 255, 255, 190));
  // The figure on the ice behind the skater: rings, one into the other.
  for (int i = 0; i < 3; ++i) {
    QPainterPath ring;
    ring.addEllipse(QPointF(540 + 12 * i, 1240 + 10 * i), 400 - 62 * i, 176 - 28 * i);
    canvas.stroke(ring, canvas.color(0, 0.42, 0.62, 0.55), 6);
  }
}

void drawLegs(Canvas& canvas) {
  canvas.painter.setBrush(QColor(70, 100, 140, 60));
  canvas.painter.drawEllipse(QPointF(560, 1236), 190, 26);
  // Standing leg, free leg stretched behind, arms wide: a spiral.
  QPainterPath standing;
  standing.moveTo(548, 860);
  standing.quadTo(566, 1040, 560, 1200);
  canvas.stroke(standing, canvas.color(20, 0.20, 0.36), 44);
  QPainterPath freeLeg;
  freeLeg.moveTo(536, 850);
  freeLeg.cubicTo(420, 830, 300, 770, 176, 640);
  canvas.stroke(freeLeg, canvas.color(20, 0.20, 0.36), 42);
  for (const auto& [foot, angle] :
       {std::pair(QPointF(562, 1206), 0.0), std::pair(QPointF(166, 628), 128.0)}) {
    canvas.painter.save();
    canvas.painter.translate(foot);
    canvas.painter.rotate(angle);
    canvas.fill(outline({{-26, -14}, {20, -14}, {52, 10}, {-26, 12}}), QColor(252, 252, 253));
    canvas.painter.fillRect(QRectF(-36, 18, 98, 6), QColor(128, 142, 160));
    canvas.painter.restore();
  }
}

void drawDress(Canvas& canvas) {
  const QColor dress = canvas.accent(0, 0.52, 0.44);
  QPainterPath torso;
  torso.moveTo(500, 860);
  torso.cubicTo(520, 740, 600, 640, 690, 590);
  torso.cubicTo(740, 620, 720, 700, 660, 760);
  torso.cubicTo(630, 800, 610, 840, 600, 884);
  torso.closeSubpath();
  canvas.fill(torso, dress);
  QPainterPath skirt;
  skirt.moveTo(498, 800);
  skirt.cubicTo(420, 800, 360, 850, 330, 930);
  skirt.cubicTo(430, 920, 560, 960, 640, 900);
  skirt.lineTo(628, 800);
  skirt.closeSubpath();
  canvas.fill(skirt, dress.lighter(122));
}

void drawArms(Canvas& canvas) {
  QPainterPath arms;
  arms.moveTo(664, 640);
  arms.cubicTo(760, 600, 850, 580, 950, 590);
  arms.moveTo(648, 650);
  arms.cubicTo(570, 600, 480, 540, 400, 470);
  canvas.stroke(arms, kSkin, 30);
  canvas.stroke(
      [] {
        QPainterPath neck;
        neck.moveTo(700, 600);
        neck.lineTo(728, 552);
        return neck;
      }(),
      kSkin, 34);
}

void drawHead(Canvas& canvas) {
  canvas.painter.setBrush(kSkin);
  canvas.painter.drawEllipse(QPointF(752, 506), 56, 62);
  QPainterPath hairdo;
  hairdo.moveTo(800, 478);
  hairdo.arcTo(QRectF(690, 434, 120, 128), 25, 190);
  hairdo.quadTo(740, 520, 760, 470);
  hairdo.closeSubpath();
  canvas.fill(hairdo, kHair);
  canvas.painter.setBrush(kHair);
  canvas.painter.drawEllipse(QPointF(686, 470), 28, 28);
  drawSnowfall(canvas, 50, {0, 0, canvas.width, 900});
}

void drawCircle(Canvas& canvas) {
  fillIce(canvas, 46);
  QPainterPath circle;
  circle.addEllipse(QPointF(620, 700), 700, 300);
  canvas.stroke(circle, QColor(206, 60, 66, 190), 22);
  canvas.painter.fillRect(QRectF(0, 150, canvas.width, 34), QColor(48, 98, 190, 120));
  canvas.painter.setBrush(QColor(206, 60, 66, 200));
  canvas.painter.drawEllipse(QPointF(620, 716), 120, 52);
}

/// From the upper right corner, its blade on the ice.
void drawStick(Canvas& canvas) {
  canvas.stroke(
      [] {
        QPainterPath shadow;
        shadow.moveTo(1640, 190);
        shadow.lineTo(930, 800);
        shadow.lineTo(640, 834);
        return shadow;
      }(),
      QColor(50, 80, 120, 60), 40);
  QPainterPath shaft;
  shaft.moveTo(1640, 80);
  shaft.lineTo(940, 760);
  canvas.stroke(shaft, QColor(150, 112, 78), 42);
  QPainterPath grip;
  grip.moveTo(1400, 313);
  grip.lineTo(1200, 507);
  canvas.stroke(grip, canvas.accent(0, 0.55, 0.50), 44);
  QPainterPath blade;
  blade.moveTo(952, 726);
  blade.quadTo(900, 790, 690, 790);
  blade.quadTo(650, 830, 700, 846);
  blade.quadTo(900, 862, 985, 780);
  blade.closeSubpath();
  canvas.fill(blade, QColor(40, 44, 54));
}

void drawDisc(Canvas& canvas) {
  canvas.painter.setBrush(QColor(40, 70, 110, 60));
  canvas.painter.drawEllipse(QPointF(540, 806), 150, 44);
  QPainterPath side;
  side.moveTo(400, 730);
  side.lineTo(400, 784);
  side.arcTo(QRectF(400, 740, 260, 88), 180, 180);
  side.lineTo(660, 730);
  side.closeSubpath();
  canvas.fill(side, QColor(22, 24, 30));
  canvas.painter.setBrush(QColor(52, 56, 66));
  canvas.painter.drawEllipse(QPointF(530, 730), 130, 44);
  QPainterPath mark;
  mark.addEllipse(QPointF(530, 730), 84, 27);
  canvas.stroke(mark, canvas.accent(0, 0.50, 0.66), 6);
}

}  // namespace

void drawSkater(Canvas& canvas) {
  drawTracedRings(canvas);
  drawLegs(canvas);
  drawDress(canvas);
  drawArms(canvas);
  drawHead(canvas);
}

void drawSkates(Canvas& canvas) {
  canvas.painter.fillRect(QRectF(0, 0, canvas.width, 1180), QColor(186, 172, 158));
  for (int plank = 0; plank < 7; ++plank) {
    canvas.painter.fillRect(QRectF(156.0 * plank, 0, 150, 1180),
                            QColor(214, 202, 188).darker(100 + 3 * (plank % 3)));
  }
  canvas.fillDown({0, 1180, canvas.width, 420}, canvas.color(10, 0.22, 0.42), canvas.color(10, 0.26, 0.28));
  canvas.painter.fillRect(QRectF(0, 1170, canvas.width, 14), canvas.color(10, 0.20, 0.56));
  // Two boots hang from a peg by their laces.
  canvas.painter.setBrush(QColor(92, 70, 56));
  canvas.painter.drawEllipse(QPointF(533, 250), 34, 34);
  const QColor lace = canvas.accent(0, 0.45, 0.55);
  const std::array hung = {std::pair(QPointF(390, 960), -7.0), std::pair(QPointF(640, 1080), 6.0)};
  for (const auto& [at, angle] : hung) {
    QPainterPath string;
    string.moveTo(533, 262);
    string.cubicTo(533, 420, at.x() - 40, 480, at.x() - 60, at.y() - 320);
    canvas.stroke(string, lace, 8);
  }
  for (const auto& [at, angle] : hung) {
    canvas.painter.save();
    canvas.painter.translate(at);
    canvas.painter.rotate(angle);
    canvas.painter.scale(1.1, 1.1);
    canvas.painter.setOpacity(0.16);
    canvas.painter.translate(22, 18);
    canvas.fill(outline({{-158, -330}, {0, -330}, {60, -180}, {214, -110}, {214, 60}, {-170, 60}}),
                Qt::black);
    canvas.painter.translate(-22, -18);
    canvas.painter.setOpacity(1.0);
    drawBoot(canvas, QColor(250, 250, 248));
    canvas.painter.restore();
  }
}

void drawPuck(Canvas& canvas) {
  drawCircle(canvas);
  drawStick(canvas);
  drawDisc(canvas);
}

}  // namespace tarvel::demo
