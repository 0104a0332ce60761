#include "ui/AnalogClockFace.h"

#include <algorithm>

#include "foundation/TextFormats.h"
#include "ui/ClockFacePainter.h"

namespace tarvel {
namespace {

constexpr int kNaturalSize = 120;
constexpr int kSmallestSize = 48;
constexpr int kMinutesPerHour = 60;

QString accessibleNameAt(const LocalTime& time) {
  return QStringLiteral("Clock, %1")
      .arg(QString::fromStdString(timeText(time.hour * kMinutesPerHour + time.minute)));
}

}  // namespace

AnalogClockFace::AnalogClockFace(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setAccessibleName(accessibleNameAt(shown_));
}

void AnalogClockFace::setDateValue(Instant now) {
  now_ = now;
  if (isVisible()) updateShownTime();
}

void AnalogClockFace::setTimeZone(const TimeZone& zone) {
  zone_ = zone;
  if (isVisible()) updateShownTime();
}

void AnalogClockFace::updateShownTime() {
  const LocalTime time = zone_.local(now_);
  if (time == shown_) return;
  shown_ = time;
  const QString name = accessibleNameAt(time);
  // A screen reader may read out every change, and no one wants to hear the seconds.
  if (name != accessibleName()) setAccessibleName(name);
  update();
}

AccessibleNode AnalogClockFace::accessibleTree() const {
  // Its name tells the time; there is nothing in it besides.
  AccessibleNode face;
  face.role = QAccessible::Graphic;
  return face;
}

QSize AnalogClockFace::sizeHint() const {
  return {kNaturalSize, kNaturalSize};
}

QSize AnalogClockFace::minimumSizeHint() const {
  return {kSmallestSize, kSmallestSize};
}

void AnalogClockFace::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  updateShownTime();
}

void AnalogClockFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const double side = std::min(width(), height());
  const QRectF face((width() - side) / 2, (height() - side) / 2, side, side);
  paintClockFace(painter, face, clockHandsAt(shown_), appearanceOf(this));
}

}  // namespace tarvel
