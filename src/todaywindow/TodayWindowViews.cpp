#include "todaywindow/TodayWindowViews.h"

#include <QEvent>
#include <QScrollBar>

namespace tarvel {
namespace {

const TextAttributes kTimeAttributes{40.0, FontWeight::regular, kLabel, kRightStyle,
                                     FontDesign::tabularDigits};
const TextAttributes kDateAttributes{16.0, FontWeight::regular, kLabel, kRightStyle};

void place(QWidget& view, const Rect& rect) {
  view.setGeometry(QRectF(rect.x, rect.y, rect.width, rect.height).toRect());
}

}  // namespace

TodayWindowViews::TodayWindowViews(const WindowContext& context, QWidget* window) : BoxView(window) {
  makeBand();
  todayScheduleScrollView_ = new QScrollArea(this);
  todayScheduleScrollView_->setFrameShape(QFrame::NoFrame);
  todayScheduleScrollView_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  todayScheduleView_ = new TodayScheduleView(context);
  todayScheduleScrollView_->setWidget(todayScheduleView_);
}

void TodayWindowViews::makeBand() {
  logoView_ = new ImageDisplayView(this);
  logoView_->setAccessibleName(QStringLiteral("Logo of the rink"));
  infoView_ = new InfoView(this);
  timeField_ = new HeadlineField(kTimeAttributes, this);
  timeField_->setAccessibleName(QStringLiteral("Time at the rink"));
  dateField_ = new HeadlineField(kDateAttributes, this);
  dateField_->setAccessibleName(QStringLiteral("Date at the rink"));
  refreshButton_ = new IconButton("refresh", QStringLiteral("Last and next refresh"), this);
  gearButton_ = new IconButton("gear", QStringLiteral("Options"), this);
  closeWindowButton_ = new IconButton("close", QStringLiteral("Close this window"), this);
}

void TodayWindowViews::changeEvent(QEvent* event) {
  BoxView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && appearanceChanged) appearanceChanged();
}

void TodayWindowViews::resizeEvent(QResizeEvent* event) {
  BoxView::resizeEvent(event);
  layOut();
}

void TodayWindowViews::showLogo(bool shown) {
  if (shown == showsLogo_) return;
  showsLogo_ = shown;
  layOut();
}

void TodayWindowViews::setNames(const std::string& rinkName, const std::string& venueName) {
  rinkName_ = rinkName;
  venueName_ = venueName;
  updateInfoText();
}

void TodayWindowViews::updateInfoText() {
  if (rinkName_.empty() && venueName_.empty()) return infoView_->setText(std::nullopt);
  AttributedText text(rinkName_ + "\n", {layout_.rinkNameFontSize, FontWeight::bold});
  text.append(venueName_, {layout_.venueNameFontSize, FontWeight::regular});
  infoView_->setText(std::move(text));
}

void TodayWindowViews::layOut() {
  layout_ = TodayWindowLayout::of({{static_cast<double>(width()), static_cast<double>(height())},
                                   showsLogo_,
                                   !closeWindowButton_->isHidden()});
  logoView_->setVisible(showsLogo_);
  place(*logoView_, layout_.logo);
  place(*infoView_, layout_.info);
  place(*timeField_, layout_.time);
  place(*dateField_, layout_.date);
  place(*refreshButton_, layout_.refreshButton);
  place(*gearButton_, layout_.gearButton);
  place(*closeWindowButton_, layout_.closeButton);
  place(*todayScheduleScrollView_, layout_.schedule);
  timeField_->setFontSize(layout_.timeFontSize);
  dateField_->setFontSize(layout_.dateFontSize);
  updateInfoText();
}

}  // namespace tarvel
