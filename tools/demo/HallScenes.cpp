#include <algorithm>
#include <array>
#include <cmath>

#include "SceneKit.h"

namespace tarvel::demo {
namespace {

const QColor kRed(206, 60, 66);
const QColor kBlue(48, 98, 190);

/// The boards' outline in the plan of the sheet.
QPainterPath sheetOutline(const QRectF& sheet) {
  QPainterPath path;
  path.addRoundedRect(sheet, sheet.height() * 0.33, sheet.height() * 0.33);
  return path;
}

void drawFaceOff(const Canvas& canvas, QPointF center, double radius) {
  QPainterPath circle;
  circle.addEllipse(center, radius, radius);
  canvas.stroke(circle, kRed, 5);
  canvas.painter.setBrush(kRed);
  canvas.painter.drawEllipse(center, 9, 9);
}

void drawCeiling(Canvas& canvas) {
  const QPointF vanishing(800, 400);
  canvas.fillDown({0, 0, canvas.width, 470}, canvas.color(0, 0.24, 0.24), canvas.color(0, 0.22, 0.40));
  // The ceiling's beams, with lamps between, run towards one point.
  for (int i = -5; i <= 5; ++i) {
    canvas.fill(outline({{800 + 330.0 * i - 26, 0},
                         {800 + 330.0 * i + 26, 0},
                         {800 + 34.0 * i + 3, 330},
                         {800 + 34.0 * i - 3, 330}}),
                canvas.color(0, 0.22, 0.17));
  }
  for (int row = 0; row < 4; ++row) {
    const double y = 40 + 250 * (1 - std::pow(0.62, row));
    const double spread = 560 * std::pow(0.62, row);
    for (const double side : {-1.0, 0.0, 1.0}) {
      const QPointF lamp(vanishing.x() + side * spread, y);
      canvas.glow(lamp, 130 * std::pow(0.68, row), QColor(255, 252, 236, 150));
      canvas.painter.setBrush(QColor(255, 254, 246));
      canvas.painter.drawEllipse(lamp, 30 * std::pow(0.66, row), 9 * std::pow(0.66, row));
    }
  }
}

/// Stands to the left and right, and the far wall.
void drawStands(Canvas& canvas) {
  canvas.fillDown({520, 330, 560, 110}, canvas.color(0, 0.22, 0.56), canvas.color(0, 0.22, 0.48));
  for (int step = 0; step < 5; ++step) {
    const QColor tone = canvas.accent(12 * (step % 2), 0.24, 0.34 + 0.05 * step);
    const double in = 44.0 * step;
    canvas.fill(
        outline({{0, 360 + 2.2 * in}, {520, 345 + 0.45 * in}, {520, 362 + 0.45 * in}, {0, 456 + 2.2 * in}}),
        tone);
    canvas.fill(outline({{1600, 360 + 2.2 * in},
                         {1080, 345 + 0.45 * in},
                         {1080, 362 + 0.45 * in},
                         {1600, 456 + 2.2 * in}}),
                tone);
  }
}

void drawHallIce(Canvas& canvas) {
  QLinearGradient shine(0, 440, 0, 1066);
  shine.setColorAt(0, QColor(232, 241, 250));
  shine.setColorAt(0.5, QColor(248, 252, 255));
  shine.setColorAt(1, canvas.color(0, 0.42, 0.88));
  canvas.fill(outline({{520, 440}, {1080, 440}, {1900, 1066}, {-300, 1066}}), shine);
  for (int lamp = 0; lamp < 3; ++lamp) {
    canvas.glow({500.0 + 300 * lamp, 700}, 250, QColor(255, 255, 255, 170));
  }
}

/// With their kick plate.
void drawBoards(Canvas& canvas) {
  canvas.fill(outline({{520, 412}, {1080, 412}, {1080, 442}, {520, 442}}), QColor(246, 248, 251));
  canvas.fill(outline({{520, 412}, {520, 442}, {-300, 1066}, {-300, 950}}), QColor(240, 243, 248));
  canvas.fill(outline({{1080, 412}, {1080, 442}, {1900, 1066}, {1900, 950}}), QColor(240, 243, 248));
  canvas.fill(outline({{520, 437}, {1080, 437}, {1080, 443}, {520, 443}}), QColor(244, 201, 76));
  canvas.fill(outline({{520, 437}, {520, 443}, {-300, 1082}, {-300, 1046}}), QColor(244, 201, 76));
  canvas.fill(outline({{1080, 437}, {1080, 443}, {1900, 1082}, {1900, 1046}}), QColor(244, 201, 76));
}

void drawHallLines(Canvas& canvas) {
  const auto across = [&](double y, double thickness, const QColor& color) {
    const double t = (y - 440) / (1066 - 440);
    canvas.painter.fillRect(QRectF(520 - 820 * t, y, 560 + 1640 * t, thickness), color);
  };
  across(505, 9, QColor(kBlue.red(), kBlue.green(), kBlue.blue(), 190));
  across(610, 13, QColor(kRed.red(), kRed.green(), kRed.blue(), 190));
  across(830, 30, QColor(kBlue.red(), kBlue.green(), kBlue.blue(), 190));
  QPainterPath circle;
  circle.addEllipse(QPointF(800, 617), 190, 54);
  canvas.stroke(circle, QColor(kBlue.red(), kBlue.green(), kBlue.blue(), 180), 7);
}

void drawRinkSide(Canvas& canvas) {
  canvas.fillDown({0, 0, canvas.width, 430}, canvas.color(0, 0.26, 0.30), canvas.color(0, 0.24, 0.46));
  for (int i = 0; i < 7; ++i) canvas.glow({130.0 + 225 * i, 120}, 170, QColor(255, 251, 232, 120));
  for (int row = 0; row < 3; ++row) {
    canvas.painter.fillRect(QRectF(0, 250 + 52.0 * row, canvas.width, 34),
                            canvas.color(14 * row, 0.32, 0.30 + 0.05 * row));
  }
  canvas.fillDown({0, 410, canvas.width, 130}, QColor(250, 251, 253), QColor(226, 232, 240));
  canvas.painter.fillRect(QRectF(0, 526, canvas.width, 16), QColor(244, 201, 76));
  canvas.fillDown({0, 542, canvas.width, 524}, QColor(226, 236, 246), QColor(248, 251, 255));
  // The lane that has been done already shines.
  canvas.fillDown({0, 742, 980, 150}, canvas.color(0, 0.50, 0.80), canvas.color(0, 0.40, 0.92));
}

QColor darkPaint(const Canvas& canvas) {
  return canvas.accent(0, 0.40, 0.22);
}

void drawMachine(Canvas& canvas) {
  const QColor body = canvas.accent(0, 0.58, 0.46);
  const QColor dark = darkPaint(canvas);
  canvas.painter.setBrush(QColor(60, 80, 110, 60));
  canvas.painter.drawEllipse(QPointF(1000, 862), 400, 34);
  QPainterPath tank;
  tank.addRoundedRect(QRectF(860, 510, 420, 250), 36, 36);
  QLinearGradient paint(0, 510, 0, 760);
  paint.setColorAt(0, body.lighter(125));
  paint.setColorAt(1, body);
  canvas.fill(tank, paint);
  canvas.fill(outline({{860, 640}, {760, 700}, {740, 790}, {880, 790}, {900, 640}}), dark);  // conditioner
  canvas.painter.fillRect(QRectF(730, 780, 170, 26), QColor(70, 78, 92));
  canvas.painter.fillRect(QRectF(860, 720, 430, 40), dark);
  canvas.painter.fillRect(QRectF(860, 600, 420, 18), QColor(255, 255, 255, 215));
  for (const double x : {950.0, 1190.0}) {
    canvas.painter.setBrush(QColor(38, 42, 50));
    canvas.painter.drawEllipse(QPointF(x, 790), 74, 74);
    canvas.painter.setBrush(QColor(198, 206, 216));
    canvas.painter.drawEllipse(QPointF(x, 790), 32, 32);
  }
}

void drawDriver(Canvas& canvas) {
  QPainterPath driver;
  driver.addRoundedRect(QRectF(905, 372, 92, 150), 40, 40);
  canvas.fill(driver, canvas.color(20, 0.30, 0.32));
  canvas.painter.setBrush(QColor(232, 196, 166));
  canvas.painter.drawEllipse(QPointF(953, 340), 40, 44);
  QPainterPath cap;
  cap.moveTo(911, 332);
  cap.arcTo(QRectF(911, 290, 84, 84), 180, -180);
  cap.lineTo(1020, 332);
  cap.closeSubpath();
  canvas.fill(cap, darkPaint(canvas));
  QPainterPath arm;
  arm.moveTo(965, 420);
  arm.quadTo(1020, 470, 1062, 450);
  canvas.stroke(arm, canvas.color(20, 0.30, 0.26), 28);
  QPainterPath wheel;
  wheel.moveTo(1040, 420);
  wheel.lineTo(1090, 490);
  canvas.stroke(wheel, QColor(38, 42, 50), 12);
}

void drawMarkings(Canvas& canvas, const QRectF& sheet) {
  const auto line = [&](double x, double thickness, const QColor& color) {
    canvas.painter.fillRect(QRectF(x - thickness / 2, sheet.top(), thickness, sheet.height()), color);
  };
  line(800, 14, kRed);
  line(800 - 200, 14, kBlue);
  line(800 + 200, 14, kBlue);
  line(sheet.left() + 95, 5, kRed);
  line(sheet.right() - 95, 5, kRed);
  for (const double side : {-1.0, 1.0}) {
    for (const double half : {-1.0, 1.0}) drawFaceOff(canvas, {800 + side * 420, 533 + half * 155}, 98);
    QPainterPath crease;
    crease.moveTo(800 + side * 575, 533 - 44);
    crease.arcTo(QRectF(800 + side * 575 - 44, 533 - 44, 88, 88), 90, side * 180);
    canvas.fill(crease, QColor(kBlue.red(), kBlue.green(), kBlue.blue(), 70));
  }
  QPainterPath center;
  center.addEllipse(QPointF(800, 533), 98, 98);
  canvas.stroke(center, kBlue, 6);
  canvas.painter.setBrush(kBlue);
  canvas.painter.drawEllipse(QPointF(800, 533), 10, 10);
}

}  // namespace

void drawHall(Canvas& canvas) {
  drawCeiling(canvas);
  drawStands(canvas);
  drawHallIce(canvas);
  drawBoards(canvas);
  drawHallLines(canvas);
}

void drawPlan(Canvas& canvas) {
  canvas.fillDown({0, 0, canvas.width, canvas.height}, canvas.color(0, 0.28, 0.34),
                  canvas.color(20, 0.30, 0.24));
  const QRectF sheet(130, 215, 1340, 636);
  const QPainterPath boards = sheetOutline(sheet);
  canvas.painter.save();
  canvas.painter.translate(0, 16);
  canvas.fill(boards, QColor(0, 0, 0, 70));
  canvas.painter.restore();
  QLinearGradient shine(sheet.topLeft(), sheet.bottomRight());
  shine.setColorAt(0, QColor(250, 253, 255));
  shine.setColorAt(1, canvas.color(0, 0.40, 0.90));
  canvas.fill(boards, shine);
  canvas.painter.save();
  canvas.painter.setClipPath(boards);
  // The wet lanes that the machine left.
  for (int lane = 0; lane < 8; ++lane) {
    QPainterPath oval;
    const double inset = 26 + 37 * lane;
    const QRectF at = sheet.adjusted(inset, inset, -inset, -inset);
    if (at.height() > 0) oval.addRoundedRect(at, at.height() / 2.2, at.height() / 2.2);
    canvas.stroke(oval, canvas.color(0, 0.45, 0.80, lane % 2 == 0 ? 0.30 : 0.12), 26);
  }
  drawMarkings(canvas, sheet);
  canvas.painter.restore();
  canvas.stroke(boards, QColor(252, 253, 255), 18);
  canvas.stroke(boards, canvas.color(0, 0.30, 0.50), 4);
}

void drawResurfacer(Canvas& canvas) {
  drawRinkSide(canvas);
  drawMachine(canvas);
  drawDriver(canvas);
}

}  // namespace tarvel::demo
