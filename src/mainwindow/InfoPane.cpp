#include "mainwindow/InfoPane.h"

#include <QEvent>
#include <QPushButton>
#include <utility>

#include "mainwindow/RinkInfoText.h"
#include "mainwindow/ToolTips.h"

namespace tarvel {
namespace {

constexpr double kStandardResolution = 72.0;  // dots per inch, at scale 1
constexpr double kFieldMargin = 6.0;          // that an info view keeps at either side of its text
const TextAttributes kNameAttributes{20.0, FontWeight::bold, kLabel, kLeftStyle};
const TextAttributes kAddressAttributes{14.0, FontWeight::regular, kLabel, kLeftLineHeight13Style};

QRect toQRect(const Rect& rect) {
  return QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect();
}

Size sizeOf(const QWidget& view) {
  const QSize hint = view.isHidden() ? QSize(0, 0) : view.sizeHint();
  return {static_cast<double>(hint.width()), static_cast<double>(hint.height())};
}

/// The name larger than the rest.
AttributedText styledText(const RinkRecord& rink) {
  const std::string text = rinkInfoText(rink);
  AttributedText styled(rink.name, kNameAttributes);
  styled.append(text.substr(rink.name.size()), kAddressAttributes);
  return styled;
}

}  // namespace

InfoPane::InfoPane(const WindowContext& context, QWidget* parent)
    : WindowPane(context.services.notifications, context.observerCensus, parent),
      workspace_(context.workspace),
      clock_(context.services.clock) {
  makeViews();
  rinkInfoLogoView_->setImageProvider([this] { return logo(); });
  rinkInfoPhotoView_->setImageProvider([this] { return coverImage_; });
  connect(visitWebsiteButton_, &QPushButton::clicked, this, &InfoPane::visitWebsite);
  connect(locateOnMapButton_, &QPushButton::clicked, this, &InfoPane::locateOnMap);
  setRink(nullptr, nullptr);
}

void InfoPane::makeViews() {
  infoBoxView_ = new BoxView(this);
  infoBoxView_->setBgColor(kContentBackground);
  infoBoxView_->setFrameColor(kTertiaryLabel);
  rinkInfoField_ = new InfoView(infoBoxView_);
  noRinkSelectedLabel_ = new InfoView(infoBoxView_);
  noRinkSelectedLabel_->setText(AttributedText("No Rink Selected", kMessageAttributes));
  rinkInfoLogoView_ = new ImageDisplayView(infoBoxView_);
  rinkInfoPhotoView_ = new ImageDisplayView(infoBoxView_);
  rinkInfoPhotoView_->setAccessibleName(QStringLiteral("Cover Photo"));
  visitWebsiteButton_ = new QPushButton(QStringLiteral("Visit Website"), infoBoxView_);
  locateOnMapButton_ = new QPushButton(QStringLiteral("Open in Maps"), infoBoxView_);
}

void InfoPane::close() {
  rinkInfoLogoView_->setImageProvider({});
  rinkInfoPhotoView_->setImageProvider({});
  showPhoto(nullptr);
  WindowPane::close();
}

void InfoPane::setRink(const std::shared_ptr<RinkInfo>& rinkInfo, const std::shared_ptr<RinkData>& rinkData) {
  rinkInfo_ = rinkInfo;
  showPhoto(rinkInfo && rinkData ? rinkData->coverPhotoCache : nullptr);
  updateText();
  updateImage();
  updateControls();
  rinkInfoLogoView_->update();
  layoutViews();
}

void InfoPane::logoChanged() {
  rinkInfoLogoView_->update();
  layoutViews();
}

void InfoPane::updateText() {
  const auto info = rinkInfo_.lock();
  noRinkSelectedLabel_->setVisible(!info);
  rinkInfoField_->setText(info ? std::optional(styledText(*info)) : std::nullopt);
}

void InfoPane::showPhoto(const std::shared_ptr<Photo>& photo) {
  if (photo == coverPhoto_) return;
  if (coverPhoto_) coverPhoto_->removeView(clock_.now());
  if (photo) photo->addView();
  coverPhoto_ = photo;
  rinkInfoPhotoView_->setAccessibleDescription(photo ? QString::fromStdString(photo->title) : QString());
}

void InfoPane::updateImage() {
  const Rect place = layoutFor(InfoLayout::Photo::shown).photoRect();
  const double resolution = kStandardResolution * devicePixelRatioF();
  const auto chosen = coverPhoto_ && !place.empty()
                          ? coverPhoto_->chooseVersion({place.width, place.height}, {resolution, resolution})
                          : std::nullopt;
  coverImage_ = chosen ? coverPhoto_->image(chosen->version) : nullptr;
  rinkInfoPhotoView_->setVisible(coverImage_ != nullptr);
  rinkInfoPhotoView_->update();
}

void InfoPane::updateControls() {
  const auto info = rinkInfo_.lock();
  visitWebsiteButton_->setVisible(info && hasWebsite(*info));
  visitWebsiteButton_->setAccessibleDescription(info ? QString::fromStdString(info->websiteUrl) : QString());
  visitWebsiteButton_->setToolTip(info ? plainToolTip(QString::fromStdString(info->websiteUrl)) : QString());
  locateOnMapButton_->setVisible(info && hasLocation(*info));
}

void InfoPane::visitWebsite() {
  if (const auto info = rinkInfo_.lock()) workspace_.openUrl(info->websiteUrl);
}

void InfoPane::locateOnMap() {
  const auto info = rinkInfo_.lock();
  if (info && hasLocation(*info)) workspace_.openLocation(info->latitude, info->longitude);
}

std::shared_ptr<const Image> InfoPane::logo() const {
  const auto info = rinkInfo_.lock();
  if (!info) return nullptr;
  return appearanceOf(this) == Appearance::dark ? info->darkLogoImage() : info->logoImage();
}

InfoLayout InfoPane::layoutFor(InfoLayout::Photo photo) const {
  return {{static_cast<double>(width()), static_cast<double>(height())}, photo};
}

void InfoPane::resizeEvent(QResizeEvent* event) {
  WindowPane::resizeEvent(event);
  updateImage();
  layoutViews();
}

void InfoPane::changeEvent(QEvent* event) {
  WindowPane::changeEvent(event);
  // The logo for the other appearance may not be at hand, and comes later.
  if (event->type() == QEvent::PaletteChange && locateOnMapButton_) layoutViews();
}

void InfoPane::layoutViews() {
  const InfoLayout layout = layoutFor(coverImage_ ? InfoLayout::Photo::shown : InfoLayout::Photo::none);
  const Rect box = layout.box();
  infoBoxView_->setGeometry(toQRect(box));
  const auto inBox = [&](Rect rect) {
    return toQRect({rect.x - box.x, rect.y - box.y, rect.width, rect.height});
  };
  noRinkSelectedLabel_->setGeometry(inBox(box));
  rinkInfoPhotoView_->setGeometry(inBox(layout.photoRect()));
  const auto& text = rinkInfoField_->text();
  rinkInfoField_->setVisible(text.has_value());
  rinkInfoLogoView_->setVisible(logo() != nullptr);
  if (!text) return;

  InfoLayout::Card card{{}, {}, sizeOf(*visitWebsiteButton_), sizeOf(*locateOnMapButton_)};
  if (!rinkInfoLogoView_->isHidden()) card.logo = {InfoLayout::kLogoSize, InfoLayout::kLogoSize};
  card.text = boundingRect(*text, {layout.textWidth(), layout.textHeight(card)}, TextFit::wrap);
  const InfoLayout::CardPlaces places = layout.place(card);
  rinkInfoLogoView_->setGeometry(inBox(places.logo));
  // The letters, not the field's margin, are in line with the rest.
  rinkInfoField_->setGeometry(inBox(places.text.inset(-kFieldMargin, 0.0)));
  visitWebsiteButton_->setGeometry(inBox(places.website));
  locateOnMapButton_->setGeometry(inBox(places.locate));
}

}  // namespace tarvel
