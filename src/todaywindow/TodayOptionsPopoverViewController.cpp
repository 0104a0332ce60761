#include "todaywindow/TodayOptionsPopoverViewController.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "platform/FatalError.h"
#include "schedule/ScheduleContents.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel {
namespace {

constexpr int kMargin = 16;
constexpr int kRowSpacing = 10;
constexpr int kColumnSpacing = 12;
constexpr int kLeastPopUpWidth = 200;
constexpr int kLargestPopUpWidth = 420;
constexpr int kRepeatDelay = 500;     // milliseconds
constexpr int kRepeatInterval = 200;  // milliseconds
/// The slider counts whole hundredths.
constexpr double kSliderSteps = 100.0;

int sliderValue(double factor) {
  return static_cast<int>(std::lround(factor * kSliderSteps));
}

QComboBox* makePopUp(const QString& name) {
  auto* popUp = new QComboBox;
  popUp->setAccessibleName(name);
  popUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  popUp->setMinimumWidth(kLeastPopUpWidth);
  popUp->setMaximumWidth(kLargestPopUpWidth);
  return popUp;
}

QPushButton* makeSizeButton(const QString& title, const QString& name) {
  auto* button = new QPushButton(title);
  button->setAccessibleName(name);
  button->setToolTip(name);
  button->setAutoRepeat(true);
  button->setAutoRepeatDelay(kRepeatDelay);
  button->setAutoRepeatInterval(kRepeatInterval);
  return button;
}

void select(QComboBox& popUp, std::int64_t tag) {
  popUp.setCurrentIndex(popUp.findData(static_cast<qlonglong>(tag)));
}

std::int64_t tagAt(const QComboBox& popUp, int index) {
  return popUp.itemData(index).toLongLong();
}

}  // namespace

TodayOptionsPopoverViewController::TodayOptionsPopoverViewController(const WindowContext& context,
                                                                     TodayWindowController& window)
    : context_(context), window_(window) {
  makeControls();
  const auto on = [this](NotificationName name, NotificationCenter::Handler handler) {
    observations_.push_back(context_.services.notifications.observe(name, std::move(handler)));
  };
  on(kRinkListChanged, [this](const Notification&) {
    rinkListChanged();
    venuesChanged();  // the window's rink may have left the list, and its venues go with it
  });
  on(kVenuesChanged, [this](const Notification& notification) {
    const auto rink = window_.chosenRink();
    if (rink && notification.object.is(rink.get())) venuesChanged();
  });
  takeFromWindow();
  connectControls();
}

void TodayOptionsPopoverViewController::makeControls() {
  rinkPopupButton_ = makePopUp(QStringLiteral("Rink"));
  venuePopupButton_ = makePopUp(QStringLiteral("Venue"));
  fitHeightCheckbox_ = new QCheckBox(QStringLiteral("Fit the whole day"));
  chimeCheckbox_ = new QCheckBox(QStringLiteral("Chime between sessions"));
  scaleHeightSlider_ = new QSlider(Qt::Horizontal);
  scaleHeightSlider_->setAccessibleName(QStringLiteral("Height of an hour"));
  scaleHeightSlider_->setRange(sliderValue(TodayScheduleView::kSmallestScale),
                               sliderValue(TodayScheduleView::kLargestScale));
  auto* form = new QFormLayout(this);
  form->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  form->setVerticalSpacing(kRowSpacing);
  form->setHorizontalSpacing(kColumnSpacing);
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  form->addRow(QStringLiteral("Rink"), rinkPopupButton_);
  form->addRow(QStringLiteral("Venue"), venuePopupButton_);
  form->addRow(QString(), fitHeightCheckbox_);
  form->addRow(QStringLiteral("Height"), scaleHeightSlider_);
  form->addRow(QStringLiteral("Text size"), makeSizeButtons());
  form->addRow(QString(), chimeCheckbox_);
  makeColorModeButtons(*form);
}

QWidget* TodayOptionsPopoverViewController::makeSizeButtons() {
  scheduleDecreaseButton_ = makeSizeButton(QStringLiteral("A−"), QStringLiteral("Smaller text"));
  scheduleIncreaseButton_ = makeSizeButton(QStringLiteral("A+"), QStringLiteral("Larger text"));
  auto* place = new QWidget;
  auto* row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(scheduleDecreaseButton_);
  row->addWidget(scheduleIncreaseButton_);
  row->addStretch(1);
  return place;
}

void TodayOptionsPopoverViewController::makeColorModeButtons(QFormLayout& form) {
  const QString titles[] = {QStringLiteral("Light"), QStringLiteral("Dark"), QStringLiteral("System")};
  auto* group = new QButtonGroup(this);
  auto* place = new QWidget;
  auto* row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  for (std::size_t tag = 0; tag < colorModeButtons_.size(); ++tag) {
    colorModeButtons_[tag] = new QRadioButton(titles[tag]);
    group->addButton(colorModeButtons_[tag], static_cast<int>(tag));
    row->addWidget(colorModeButtons_[tag]);
  }
  row->addStretch(1);
  form.addRow(QStringLiteral("Appearance"), place);
  connect(group, &QButtonGroup::idClicked, this, [this](int tag) { chooseColorMode(tag); });
}

void TodayOptionsPopoverViewController::takeFromWindow() {
  rinkListChanged();
  venuesChanged();
  const TodayScheduleView& view = window_.todayScheduleView();
  const bool fits = view.fitHeight() == VerticalFit::fit;
  fitHeightCheckbox_->setChecked(fits);
  chimeCheckbox_->setChecked(window_.chimeOption);
  scaleHeightSlider_->setValue(sliderValue(view.heightScaleFactor()));
  scaleHeightSlider_->setEnabled(!fits);
  colorModeButtons_.at(static_cast<std::size_t>(window_.colorMode()))->setChecked(true);
}

void TodayOptionsPopoverViewController::connectControls() {
  connect(rinkPopupButton_, &QComboBox::activated, this,
          [this](int index) { chooseRink(tagAt(*rinkPopupButton_, index)); });
  connect(venuePopupButton_, &QComboBox::activated, this,
          [this](int index) { chooseVenue(tagAt(*venuePopupButton_, index)); });
  connect(fitHeightCheckbox_, &QCheckBox::toggled, this, [this](bool fits) { toggleFitHeight(fits); });
  connect(chimeCheckbox_, &QCheckBox::toggled, this, [this](bool chimes) {
    window_.chimeOption = chimes;
    context_.application.markChanged();
  });
  connect(scaleHeightSlider_, &QSlider::valueChanged, this, [this](int value) {
    window_.todayScheduleView().setHeightScaleFactor(value / kSliderSteps);
    context_.application.markChanged();
  });
  // At once when the mouse goes down, and again while it is held.
  connect(scheduleIncreaseButton_, &QPushButton::pressed, this,
          [this] { window_.todayScheduleView().increaseFontSize(); });
  connect(scheduleDecreaseButton_, &QPushButton::pressed, this,
          [this] { window_.todayScheduleView().decreaseFontSize(); });
}

void TodayOptionsPopoverViewController::rinkListChanged() {
  const QSignalBlocker quiet(rinkPopupButton_);
  rinkPopupButton_->clear();
  for (const auto& info : context_.dataModel.rinkList) {
    rinkPopupButton_->addItem(QString::fromStdString(info->name), static_cast<qlonglong>(info->rinkID));
  }
  const auto rink = window_.chosenRink();
  select(*rinkPopupButton_, rink ? rink->rinkID : 0);
  adjustSize();
}

void TodayOptionsPopoverViewController::venuesChanged() {
  const QSignalBlocker quiet(venuePopupButton_);
  venuePopupButton_->clear();
  const auto rink = window_.chosenRink();
  if (rink) {
    for (const auto& venue : rink->venues) {
      venuePopupButton_->addItem(QString::fromStdString(venue->displayName()),
                                 static_cast<qlonglong>(venue->venueID));
    }
  }
  const auto venue = window_.chosenVenue();
  select(*venuePopupButton_, venue ? venue->venueID : 0);
  adjustSize();
}

void TodayOptionsPopoverViewController::chooseRink(std::int64_t rinkID) {
  if (!context_.dataModel.rinkInfo(rinkID)) return;
  window_.setChosenRink(context_.dataModel.rinkData(rinkID));
  venuesChanged();
  context_.application.markChanged();
}

void TodayOptionsPopoverViewController::chooseVenue(std::int64_t venueID) {
  const auto rink = window_.chosenRink();
  if (const auto venue = rink ? rink->venue(venueID) : nullptr) window_.setChosenVenue(venue);
  context_.application.markChanged();
}

void TodayOptionsPopoverViewController::toggleFitHeight(bool fits) {
  window_.todayScheduleView().setFitHeight(fits ? VerticalFit::fit : VerticalFit::scroll);
  scaleHeightSlider_->setEnabled(!fits);
  context_.application.markChanged();
}

void TodayOptionsPopoverViewController::chooseColorMode(int tag) {
  if (tag > static_cast<int>(ColorMode::useSystemPref)) fatalError("an unknown color mode");
  window_.setColorMode(static_cast<ColorMode>(tag));
  context_.application.markChanged();
}

void TodayOptionsPopoverViewController::close() {
  observations_.clear();
}

}  // namespace tarvel
