#include "ui/ClockFacePainter.h"

#include <cmath>
#include <numbers>

#include "ui/Fonts.h"
#include "ui/NamedColors.h"

namespace tarvel {
namespace {

constexpr int kMarks = 60;
constexpr int kMarksPerHour = 5;
constexpr int kHours = 12;
constexpr double kFullTurn = 360.0;

// Lengths in logical pixels.
constexpr double kRimWidth = 1.0;
constexpr double kSmallestForNumerals = 84.0;     // diameter
constexpr double kSmallestForMinuteMarks = 64.0;  // diameter

// The others are fractions of the radius.
constexpr double kMarkOuterEnd = 0.93;
constexpr double kHourMarkInnerEnd = 0.85;
constexpr double kMinuteMarkInnerEnd = 0.89;
constexpr double kHourMarkWidth = 0.032;
constexpr double kMinuteMarkWidth = 0.015;
constexpr double kNumeralRadius = 0.69;
constexpr double kNumeralHeight = 0.20;
constexpr double kHubRadius = 0.065;
constexpr double kPinRadius = 0.042;
constexpr double kEyeRadius = 0.016;

struct HandShape {
  double length;
  double tail;  ///< beyond the hub, the other way
  double width;
};
constexpr HandShape kHourHand{0.50, 0.0, 0.075};
constexpr HandShape kMinuteHand{0.74, 0.0, 0.055};
constexpr HandShape kSecondHand{0.84, 0.20, 0.020};

/// Draws in a system whose origin is the face's centre and whose unit is the pixel.
class FacePainter {
 public:
  FacePainter(QPainter& painter, double radius, Appearance appearance)
      : painter_(painter), radius_(radius), appearance_(appearance) {}

  void paint(const ClockHands& hands) {
    paintDial();
    paintMarks();
    if (2 * radius_ >= kSmallestForNumerals) paintNumerals();
    paintHand(kHourHand, hands.hour, kLabel);
    paintHand(kMinuteHand, hands.minute, kLabel);
    paintDisc(kHubRadius, kLabel);
    paintHand(kSecondHand, hands.second, kSystemRed);
    paintDisc(kPinRadius, kSystemRed);
    paintDisc(kEyeRadius, kContentBackground);
  }

 private:
  QColor colorOf(NamedColor name) const { return color(name, appearance_); }

  void paintDial() {
    painter_.setPen(QPen(colorOf(kContentBorder), kRimWidth));
    painter_.setBrush(colorOf(kContentBackground));
    const double dial = radius_ - kRimWidth / 2;
    painter_.drawEllipse(QPointF(), dial, dial);
  }

  void paintMarks() {
    const bool minutes = 2 * radius_ >= kSmallestForMinuteMarks;
    for (int i = 0; i < kMarks; ++i) {
      const bool onTheHour = i % kMarksPerHour == 0;
      if (!onTheHour && !minutes) continue;
      const double inner = onTheHour ? kHourMarkInnerEnd : kMinuteMarkInnerEnd;
      const double width = onTheHour ? kHourMarkWidth : kMinuteMarkWidth;
      painter_.setPen(QPen(colorOf(onTheHour ? kSecondaryLabel : kInactiveSelectedContentFrame),
                           width * radius_, Qt::SolidLine, Qt::RoundCap));
      const double angle = i * kFullTurn / kMarks;
      painter_.drawLine(at(angle, inner), at(angle, kMarkOuterEnd));
    }
  }

  void paintNumerals() {
    const FixedTextScale sizeOfTheFace;
    const QFont font = systemFont(kNumeralHeight * radius_, FontWeight::medium);
    painter_.setFont(font);
    painter_.setPen(colorOf(kLabel));
    const QFontMetricsF metrics(font);
    for (int hour = 1; hour <= kHours; ++hour) {
      const QString numeral = QString::number(hour);
      const QPointF centre = at(hour * kFullTurn / kHours, kNumeralRadius);
      // By the digits' own height: the font's leaves room for descenders, which digits lack.
      painter_.drawText(centre + QPointF(-metrics.horizontalAdvance(numeral) / 2, metrics.capHeight() / 2),
                        numeral);
    }
  }

  void paintHand(const HandShape& shape, double angle, NamedColor name) {
    painter_.setPen(QPen(colorOf(name), shape.width * radius_, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(at(angle, -shape.tail), at(angle, shape.length));
  }

  void paintDisc(double size, NamedColor name) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colorOf(name));
    painter_.drawEllipse(QPointF(), size * radius_, size * radius_);
  }

  /// `angle` in degrees clockwise from twelve, `distance` a fraction of the radius.
  QPointF at(double angle, double distance) const {
    const double radians = angle * std::numbers::pi / (kFullTurn / 2);
    return QPointF(std::sin(radians), -std::cos(radians)) * (distance * radius_);
  }

  QPainter& painter_;
  double radius_;
  Appearance appearance_;
};

}  // namespace

void paintClockFace(QPainter& painter, const QRectF& square, const ClockHands& hands, Appearance appearance) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(square.center());
  FacePainter(painter, square.width() / 2, appearance).paint(hands);
  painter.restore();
}

}  // namespace tarvel
