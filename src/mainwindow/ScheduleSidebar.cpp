#include "mainwindow/ScheduleSidebar.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "mainwindow/ContentBox.h"
#include "mainwindow/ScheduleSidebarLayout.h"
#include "mainwindow/TextLabel.h"
#include "ui/AnalogClockFace.h"
#include "ui/Fonts.h"
#include "ui/SegmentedControl.h"

namespace tarvel {
namespace {

constexpr QSize kLogoSize{150, 60};
constexpr QSize kNaturalSize{ScheduleSidebar::kNaturalWidth, 560};
constexpr int kItemInfoMargin = 8;
constexpr int kNarrowestPopUp = 120;
constexpr int kWidestPopUpMargin = 24;  // what the pop-up button leaves of the sidebar's width

const TextAttributes kChimeAttributes{11.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};
const TextAttributes kItemInfoAttributes{12.0, FontWeight::regular, kLabel, kCentredStyle};

Size asSize(const QSize& size) {
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

/// Whole pixels, so that texts and lines are sharp.
QRect asQRect(const Rect& rect) {
  const int x = static_cast<int>(std::lround(rect.x));
  const int y = static_cast<int>(std::lround(rect.y));
  return {x, y, static_cast<int>(std::lround(rect.width)), static_cast<int>(std::lround(rect.height))};
}

void place(QWidget& view, const std::optional<Rect>& rect) {
  if (rect) view.setGeometry(asQRect(*rect));
  view.setVisible(rect.has_value());
}

}  // namespace

ScheduleSidebar::ScheduleSidebar(QWidget* parent) : QWidget(parent) {
  setMinimumWidth(kMinimumWidth);
  setMaximumWidth(kMaximumWidth);
  // In the order of the tab key, from the top.
  makeChoices();
  makeClocksAndItemInfo();
  scheduleAdjustmentsView_ = new ScheduleAdjustmentsView(this);
  passSignalsOn();
}

void ScheduleSidebar::makeChoices() {
  scheduleLogoView_ = new ImageDisplayView(this);
  scheduleLogoView_->setAccessibleName(QStringLiteral("Logo of the rink"));
  scheduleViewOptionControl_ = new SegmentedControl(this);
  scheduleViewOptionControl_->setAccessibleName(QStringLiteral("Form of the schedule"));
  scheduleViewOptionControl_->setSegments({QStringLiteral("Weekly"), QStringLiteral("Daily")});
  scheduleViewOptionControl_->setSelectedSegment(static_cast<int>(ScheduleViewOption::weekly));
  venueButtons_ = new VenueButtons(this);
  chimeLabel_ = new TextLabel(kChimeAttributes, TextLabel::Lines::one, this);
  chimeLabel_->setTextUtf8("Chime");
  chimePopUpButton_ = new ChimePopUpButton(this);
  chimeLabel_->setBuddy(chimePopUpButton_);
}

void ScheduleSidebar::makeClocksAndItemInfo() {
  analogClockFace_ = new AnalogClockFace(this);
  digitalClockContainer_ = new DigitalClockView(this);
  itemInfoBox_ = new ContentBox(kContentBackground2, this);
  itemInfoField_ = new TextLabel(kItemInfoAttributes, TextLabel::Lines::several, itemInfoBox_);
  itemInfoField_->setAccessibleName(QStringLiteral("Session under the mouse"));
  auto* box = new QVBoxLayout(itemInfoBox_);
  box->setContentsMargins(kItemInfoMargin, kItemInfoMargin, kItemInfoMargin, kItemInfoMargin);
  box->addWidget(itemInfoField_, 1);
}

void ScheduleSidebar::passSignalsOn() {
  connect(scheduleViewOptionControl_, &SegmentedControl::segmentChosen, this,
          [this](int segment) { emit viewOptionChosen(static_cast<ScheduleViewOption>(segment)); });
  connect(venueButtons_, &VenueButtons::venueToggled, this, &ScheduleSidebar::venueToggled);
  connect(chimePopUpButton_, &ChimePopUpButton::chimeChosen, this, &ScheduleSidebar::chimeChosen);
  const ScheduleAdjustmentsView* adjustments = scheduleAdjustmentsView_;
  connect(adjustments, &ScheduleAdjustmentsView::fitToggled, this, &ScheduleSidebar::fitToggled);
  connect(adjustments, &ScheduleAdjustmentsView::showTimesToggled, this, &ScheduleSidebar::showTimesToggled);
  connect(adjustments, &ScheduleAdjustmentsView::decreaseTextSize, this, &ScheduleSidebar::decreaseTextSize);
  connect(adjustments, &ScheduleAdjustmentsView::increaseTextSize, this, &ScheduleSidebar::increaseTextSize);
}

void ScheduleSidebar::setLogoProvider(ImageDisplayView::ImageProvider provider) {
  scheduleLogoView_->setImageProvider(std::move(provider));
}

void ScheduleSidebar::setOption(ScheduleViewOption option) {
  scheduleViewOptionControl_->setSelectedSegment(static_cast<int>(option));
}

void ScheduleSidebar::setVenues(const std::vector<VenueChoice>& venues, VenueButtonKind kind) {
  venueButtons_->setVenues(venues, kind);
  layoutScheduleSidebar();
}

void ScheduleSidebar::setChimeItems(const std::vector<ChimeItem>& items) {
  chimePopUpButton_->setChimeItems(items);
  layoutScheduleSidebar();
}

void ScheduleSidebar::setItemInfo(const std::string& text) {
  itemInfoField_->setTextUtf8(text);
  itemInfoField_->setAccessibleDescription(itemInfoField_->text());
}

bool ScheduleSidebar::showsItemInfo() const {
  return !itemInfoBox_->isHidden();
}

void ScheduleSidebar::layoutScheduleSidebar() {
  QSize popUp = chimePopUpButton_->sizeHint();
  popUp.setWidth(std::min(std::max(popUp.width(), kNarrowestPopUp), width() - kWidestPopUpMargin));
  ScheduleSidebarSizes sizes;
  sizes.sidebar = asSize(size());
  sizes.logo = asSize(kLogoSize);
  const QSize room(width() - static_cast<int>(2 * ScheduleSidebarLayout::kLeftMargin), height());
  sizes.viewOptionControl = asSize(scheduleViewOptionControl_->sizeHint().boundedTo(room));
  sizes.venueCount = static_cast<int>(venueButtons_->buttons().size());
  sizes.textScale = textScale();
  sizes.widestVenueButton = venueButtons_->widestButton();
  sizes.chimeLabel = asSize(chimeLabel_->sizeHint());
  sizes.chimePopUpButton = asSize(popUp);
  sizes.analogClockFace = asSize(analogClockFace_->sizeHint());
  sizes.digitalClock = asSize(digitalClockContainer_->sizeHint().boundedTo(room));
  sizes.adjustments = asSize(scheduleAdjustmentsView_->sizeHint());
  const ScheduleSidebarLayout layout(sizes);

  scheduleLogoView_->setGeometry(asQRect(layout.scheduleLogoView));
  scheduleViewOptionControl_->setGeometry(asQRect(layout.scheduleViewOptionControl));
  venueButtons_->setGeometry(asQRect(layout.venueArea));
  venueButtons_->placeButtons(static_cast<int>(layout.venueButtonX),
                              static_cast<int>(layout.venueButtonWidth));
  chimeLabel_->setGeometry(asQRect(layout.chimeLabel));
  chimePopUpButton_->setGeometry(asQRect(layout.chimePopUpButton));
  place(*analogClockFace_, layout.analogClockFace);
  place(*digitalClockContainer_, layout.digitalClockContainer);
  place(*itemInfoBox_, layout.itemInfoField);
  scheduleAdjustmentsView_->setGeometry(asQRect(layout.scheduleAdjustmentsView));
  venueSelectionBottom_ = layout.venueSelectionBottom;
}

QSize ScheduleSidebar::sizeHint() const {
  return kNaturalSize;
}

void ScheduleSidebar::resizeEvent(QResizeEvent*) {
  layoutScheduleSidebar();
}

void ScheduleSidebar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) layoutScheduleSidebar();
}

void ScheduleSidebar::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), color(kContentBackground, this));
}

}  // namespace tarvel
