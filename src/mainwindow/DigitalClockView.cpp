#include "mainwindow/DigitalClockView.h"

#include <QPainter>
#include <cmath>

namespace tarvel {
namespace {

constexpr double kTimeSize = 28.0;
constexpr double kSmallestTimeSize = 16.0;
constexpr double kTimeSizeStep = 2.0;
constexpr int kNaturalWidth = 146;
constexpr int kTimeHeight = 36;
constexpr int kDayHeight = 18;

const TextAttributes kZoneAttributes{11.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};
const TextAttributes kDayOfWeekAttributes{12.0, FontWeight::medium, kLabel, kCentredStyle};
const TextAttributes kDateAttributes{12.0, FontWeight::regular, kSecondaryLabel, kCentredStyle,
                                     FontDesign::tabularDigits};

void drawLine(QPainter& painter, double y, double height, double width, const AttributedText& line,
              Appearance appearance) {
  const double used = boundingRect(line, {}, TextFit::wrap).height;
  draw(painter, {0.0, y + std::floor((height - used) / 2), width, used}, line, TextFit::wrapAndTruncate,
       appearance);
}

}  // namespace

DigitalClockView::DigitalClockView(QWidget* parent) : QWidget(parent) {
  setAccessibleName(QStringLiteral("Time at the rink"));
}

AccessibleNode DigitalClockView::accessibleTree() const {
  AccessibleNode clock;
  clock.role = QAccessible::StaticText;
  return clock;
}

void DigitalClockView::setTexts(const ClockTexts& texts) {
  if (texts == texts_) return;
  texts_ = texts;
  setAccessibleDescription(timeLine(kTimeSize).plainText() + QStringLiteral(", ") + dayLine().plainText());
  update();
}

QSize DigitalClockView::sizeHint() const {
  return {scaledForText(kNaturalWidth), scaledForText(kTimeHeight + kDayHeight)};
}

AttributedText DigitalClockView::timeLine(double fontSize) const {
  AttributedText line(texts_.timeField,
                      {fontSize, FontWeight::regular, kLabel, kCentredStyle, FontDesign::tabularDigits});
  if (!texts_.timeZoneField.empty()) line.append(" " + texts_.timeZoneField, kZoneAttributes);
  return line;
}

AttributedText DigitalClockView::dayLine() const {
  AttributedText line(texts_.dayOfWeekField, kDayOfWeekAttributes);
  if (!texts_.dateField.empty()) line.append("  " + texts_.dateField, kDateAttributes);
  return line;
}

void DigitalClockView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // A time that is cut would be another time.
  double fontSize = kTimeSize;
  while (fontSize > kSmallestTimeSize &&
         boundingRect(timeLine(fontSize), {}, TextFit::wrap).width > width()) {
    fontSize -= kTimeSizeStep;
  }
  const Appearance appearance = appearanceOf(this);
  drawLine(painter, 0.0, scaledForText(kTimeHeight), width(), timeLine(fontSize), appearance);
  drawLine(painter, scaledForText(kTimeHeight), scaledForText(kDayHeight), width(), dayLine(), appearance);
}

}  // namespace tarvel
