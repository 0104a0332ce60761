#pragma once
#include <QDateTimeEdit>

#include "foundation/ClockTimer.h"

namespace tarvel {

/// A field with date and time of the machine's zone, to the second, that follows the clock while it is one of
/// its faces. What the clock sets, it doesn't signal; and the clock leaves alone what is half typed. Main
/// thread.
class ClockPicker : public QDateTimeEdit, public ClockFace {
  Q_OBJECT
 public:
  explicit ClockPicker(QWidget* parent = nullptr);

  void setDateValue(Instant now) override;
  Instant dateValue() const;

 signals:
  /// The user has set another moment.
  void dateChosen();
};

}  // namespace tarvel
