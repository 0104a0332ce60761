#include "auxwindows/ClockPicker.h"

#include <QSignalBlocker>
#include <cmath>

#include "ui/Fonts.h"

namespace tarvel {
namespace {

constexpr double kFontSize = 15.0;
// Schedules know no dates before the first of these.
const QDate kFirstDate(2001, 1, 2);
const QDate kLastDate(2999, 12, 30);

}  // namespace

ClockPicker::ClockPicker(QWidget* parent) : QDateTimeEdit(parent) {
  setFont(tabularDigitsFont(kFontSize));
  setDisplayFormat(QStringLiteral("M/d/yyyy  h:mm:ss ap"));
  setDateRange(kFirstDate, kLastDate);
  setAccessibleName(QStringLiteral("Date and time"));
  connect(this, &QDateTimeEdit::dateTimeChanged, this, &ClockPicker::dateChosen);
}

void ClockPicker::setDateValue(Instant now) {
  if (!hasAcceptableInput()) return;
  const QSignalBlocker quiet(this);
  const auto seconds = static_cast<qint64>(std::llround(now.seconds));
  setDateTime(QDateTime::fromSecsSinceEpoch(seconds + kReferenceDateSince1970));
}

Instant ClockPicker::dateValue() const {
  return {static_cast<double>(dateTime().toSecsSinceEpoch() - kReferenceDateSince1970)};
}

}  // namespace tarvel
