#pragma once
#include <QWidget>

class QCheckBox;
class QPushButton;

namespace tarvel {

/// How the schedule is drawn: whether it fits the height, whether sessions show their times, and how large
/// the text is. It says what was clicked. Main thread.
class ScheduleAdjustmentsView : public QWidget {
  Q_OBJECT
 public:
  explicit ScheduleAdjustmentsView(QWidget* parent);

  void setFit(bool on);
  void setShowTimes(bool on);
  /// The view's size stays the same.
  void showTimesVisible(bool visible);
  /// Whether the text can be made smaller, or larger.
  void setTextSizeSteps(bool smaller, bool larger);

 signals:
  void fitToggled(bool on);
  void showTimesToggled(bool on);
  void decreaseTextSize();
  void increaseTextSize();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void setSizes();
  QCheckBox* makeCheckbox(const QString& title, const QString& help);
  QPushButton* makeTextSizeButton(const QString& title, const QString& name);

  QCheckBox* fitVerticallyCheckbox_;
  QCheckBox* showTimesCheckbox_;
  QPushButton* smallerTextButton_;
  QPushButton* largerTextButton_ = nullptr;
};

}  // namespace tarvel
