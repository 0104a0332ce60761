#include "todaywindow/TodayWindowViews.h"

#include <QEvent>
#include <QScrollBar>

namespace tarvel {
namespace {

const TextAttributes kTimeAttributes{40.0, FontWeight::regular, kLabel, kRightStyle,
                                     FontDesign::tabularDigits};
const TextAttributes kDateAttributes{16.0, FontWeight::regular, kLabel, kRightStyle};

/// Of the names' sizes; what is too long for this is broken into lines, and they have room.
constexpr double kLeastNameScale = 0.5;
/// A font of another size is not wider in the same proportion to the pixel.
constexpr double kSpareRoom = 0.98;

/// The names' sizes follow from the band's, not from the desktop's wish.
class NamesView final : public InfoView {
 public:
  using InfoView::InfoView;

 protected:
  void paintEvent(QPaintEvent* event) override {
    const FixedTextScale sizeOfTheBand;
    InfoView::paintEvent(event);
  }
};

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
  tintScrollBar();
}

void TodayWindowViews::tintScrollBar() {
  QPalette groove;
  groove.setColor(QPalette::Base, color(kTodayBackground, this));
  todayScheduleScrollView_->verticalScrollBar()->setPalette(groove);
}

void TodayWindowViews::makeBand() {
  logoView_ = new ImageDisplayView(this);
  logoView_->setAccessibleName(QStringLiteral("Logo of the rink"));
  infoView_ = new NamesView(this);
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
  if (event->type() != QEvent::PaletteChange || !todayScheduleView_) return;
  tintScrollBar();
  if (appearanceChanged) appearanceChanged();
}

void TodayWindowViews::resizeEvent(QResizeEvent* event) {
  BoxView::resizeEvent(event);
  layOut();
}

void TodayWindowViews::setLogoSize(const Size& size) {
  if (size == logoSize_) return;
  logoSize_ = size;
  layOut();
}

void TodayWindowViews::setNames(const std::string& rinkName, const std::string& venueName) {
  rinkName_ = rinkName;
  venueName_ = venueName;
  updateInfoText();
}

void TodayWindowViews::updateInfoText() {
  if (rinkName_.empty() && venueName_.empty()) return infoView_->setText(std::nullopt);
  const auto names = [this](double scale) {
    AttributedText text(rinkName_ + "\n", {scale * layout_.rinkNameFontSize, FontWeight::bold});
    text.append(venueName_, {scale * layout_.venueNameFontSize, FontWeight::regular});
    return text;
  };
  const FixedTextScale sizeOfTheBand;
  // Long names are smaller rather than broken into lines, of which the last would have no room.
  const double wanted = boundingRect(names(1.0), {}, TextFit::wrap).width;
  const double room = layout_.info.width - 2 * InfoView::kSideMargin;
  infoView_->setText(names(wanted > room ? std::max(kLeastNameScale, kSpareRoom * room / wanted) : 1.0));
}

void TodayWindowViews::layOut() {
  layout_ = TodayWindowLayout::of({{static_cast<double>(width()), static_cast<double>(height())},
                                   logoSize_,
                                   !closeWindowButton_->isHidden()});
  logoView_->setVisible(logoSize_.width > 0.0 && logoSize_.height > 0.0);
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
