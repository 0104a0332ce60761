#pragma once
#include <QWidget>

#include "foundation/ClockTimer.h"
#include "ui/AccessibleView.h"
#include "ui/ClockHands.h"

namespace tarvel {

/// A clock with hands that shows the time of a zone. Its owner puts it among the clock's faces while it is to
/// run, and takes it out before it goes. It repaints once for each second that it is given, and does nothing
/// while it can't be seen. The face is as large as the shorter side allows, centred. Main thread.
class AnalogClockFace : public QWidget, public ClockFace, public AccessibleView {
  Q_OBJECT
 public:
  /// Shows UTC until it is given a zone.
  explicit AnalogClockFace(QWidget* parent = nullptr);

  void setDateValue(Instant now) override;
  void setTimeZone(const TimeZone& zone);
  const TimeZone& timeZone() const { return zone_; }
  /// What the face shows, seconds included.
  const LocalTime& shownTime() const { return shown_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  AccessibleNode accessibleTree() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void updateShownTime();

  TimeZone zone_ = TimeZone::utc();
  Instant now_;
  LocalTime shown_;
};

}  // namespace tarvel
