#include "mainwindow/ScheduleAdjustmentsView.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/Fonts.h"

namespace tarvel {
namespace {

constexpr double kTitleSize = 12.0;
constexpr int kCheckboxHeight = 18;
constexpr int kCheckboxGap = 6;
constexpr int kColumnGap = 16;
constexpr int kTopMargin = 8;
constexpr int kButtonGap = 4;
constexpr int kTextSizeButtonWidth = 32;
constexpr int kTextSizeButtonMargin = 5;

}  // namespace

ScheduleAdjustmentsView::ScheduleAdjustmentsView(QWidget* parent) : QWidget(parent) {
  fitVerticallyCheckbox_ =
      makeCheckbox(QStringLiteral("Fit"), QStringLiteral("Fit the whole day into the height of the window"));
  showTimesCheckbox_ =
      makeCheckbox(QStringLiteral("Times"), QStringLiteral("Show the times of each session"));
  smallerTextButton_ = makeTextSizeButton(QStringLiteral("A\u2212"), QStringLiteral("Smaller text"));
  largerTextButton_ = makeTextSizeButton(QStringLiteral("A+"), QStringLiteral("Larger text"));

  auto* checkboxes = new QVBoxLayout;
  checkboxes->setSpacing(kCheckboxGap);
  checkboxes->addWidget(fitVerticallyCheckbox_);
  checkboxes->addWidget(showTimesCheckbox_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, kTopMargin, 0, 0);
  row->setSpacing(kButtonGap);
  row->addLayout(checkboxes);
  row->addSpacing(kColumnGap - kButtonGap);
  row->addWidget(smallerTextButton_);
  row->addWidget(largerTextButton_);

  setSizes();

  connect(fitVerticallyCheckbox_, &QCheckBox::clicked, this, &ScheduleAdjustmentsView::fitToggled);
  connect(showTimesCheckbox_, &QCheckBox::clicked, this, &ScheduleAdjustmentsView::showTimesToggled);
  connect(smallerTextButton_, &QPushButton::clicked, this, &ScheduleAdjustmentsView::decreaseTextSize);
  connect(largerTextButton_, &QPushButton::clicked, this, &ScheduleAdjustmentsView::increaseTextSize);
}

QCheckBox* ScheduleAdjustmentsView::makeCheckbox(const QString& title, const QString& help) {
  auto* checkbox = new QCheckBox(title, this);
  checkbox->setFont(systemFont(kTitleSize));
  checkbox->setFocusPolicy(Qt::TabFocus);
  checkbox->setToolTip(help);
  return checkbox;
}

QPushButton* ScheduleAdjustmentsView::makeTextSizeButton(const QString& title, const QString& name) {
  auto* button = new QPushButton(title, this);
  button->setFont(systemFont(kTitleSize));
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(name);
  button->setToolTip(name);
  return button;
}

void ScheduleAdjustmentsView::setSizes() {
  for (QCheckBox* checkbox : {fitVerticallyCheckbox_, showTimesCheckbox_})
    checkbox->setFixedHeight(scaledForText(kCheckboxHeight));
  for (QPushButton* button : {smallerTextButton_, largerTextButton_})
    button->setFixedWidth(
        std::max(kTextSizeButtonWidth,
                 button->fontMetrics().horizontalAdvance(button->text()) + 2 * kTextSizeButtonMargin));
  // What may be hidden leaves its room, and nothing else moves; the other check box takes the middle.
  fitVerticallyCheckbox_->setMinimumWidth(showTimesCheckbox_->sizeHint().width());
  setFixedHeight(sizeHint().height());
}

void ScheduleAdjustmentsView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && largerTextButton_) setSizes();
}

void ScheduleAdjustmentsView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  setSizes();
}

void ScheduleAdjustmentsView::setFit(bool on) {
  fitVerticallyCheckbox_->setChecked(on);
}

void ScheduleAdjustmentsView::setShowTimes(bool on) {
  showTimesCheckbox_->setChecked(on);
}

void ScheduleAdjustmentsView::showTimesVisible(bool visible) {
  showTimesCheckbox_->setVisible(visible);
}

void ScheduleAdjustmentsView::setTextSizeSteps(bool smaller, bool larger) {
  smallerTextButton_->setEnabled(smaller);
  largerTextButton_->setEnabled(larger);
}

}  // namespace tarvel
