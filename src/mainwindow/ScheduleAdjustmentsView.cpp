#include "mainwindow/ScheduleAdjustmentsView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

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

  // What may be hidden leaves its room, and nothing else moves; the other check box takes the middle.
  fitVerticallyCheckbox_->setMinimumWidth(showTimesCheckbox_->sizeHint().width());
  setFixedHeight(sizeHint().height());

  connect(fitVerticallyCheckbox_, &QCheckBox::clicked, this, &ScheduleAdjustmentsView::fitToggled);
  connect(showTimesCheckbox_, &QCheckBox::clicked, this, &ScheduleAdjustmentsView::showTimesToggled);
  connect(smallerTextButton_, &QPushButton::clicked, this, &ScheduleAdjustmentsView::decreaseTextSize);
  connect(largerTextButton_, &QPushButton::clicked, this, &ScheduleAdjustmentsView::increaseTextSize);
}

QCheckBox* ScheduleAdjustmentsView::makeCheckbox(const QString& title, const QString& help) {
  auto* checkbox = new QCheckBox(title, this);
  checkbox->setFont(systemFont(kTitleSize));
  checkbox->setFixedHeight(kCheckboxHeight);
  checkbox->setFocusPolicy(Qt::TabFocus);
  checkbox->setToolTip(help);
  return checkbox;
}

QPushButton* ScheduleAdjustmentsView::makeTextSizeButton(const QString& title, const QString& name) {
  auto* button = new QPushButton(title, this);
  button->setFont(systemFont(kTitleSize));
  button->setFixedWidth(kTextSizeButtonWidth);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(name);
  button->setToolTip(name);
  return button;
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
