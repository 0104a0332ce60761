#pragma once
#include <QWidget>
#include <string>

#include "ui/AccessibleView.h"
#include "ui/AttributedText.h"

namespace tarvel {

/// What a rink's clock says in figures and words; any may be empty.
struct ClockTexts {
  std::string timeField;      ///< "10:42 am"
  std::string timeZoneField;  ///< "EDT"
  std::string dayOfWeekField;
  std::string dateField;
  friend bool operator==(const ClockTexts&, const ClockTexts&) = default;
};

/// The time, large, with its zone beside it, and the day below. Its height is the same whatever it says.
/// Main thread.
class DigitalClockView : public QWidget, public AccessibleView {
  Q_OBJECT
 public:
  explicit DigitalClockView(QWidget* parent);

  void setTexts(const ClockTexts& texts);
  const ClockTexts& texts() const { return texts_; }
  QSize sizeHint() const override;

  AccessibleNode accessibleTree() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  AttributedText timeLine(double fontSize) const;
  AttributedText dayLine() const;

  ClockTexts texts_;
};

}  // namespace tarvel
