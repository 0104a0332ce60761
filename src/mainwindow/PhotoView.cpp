#include "mainwindow/PhotoView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "mainwindow/PhotoPainter.h"
#include "mainwindow/PhotoTexts.h"
#include "ui/WindowPane.h"

namespace tarvel {
namespace {

constexpr double kInset = 12.0;
constexpr double kCaptionGap = 8.0;     // between photo and caption
constexpr double kTextGap = 2.0;        // between title and description
constexpr double kTextMargins = 150.0;  // texts end well before the page does
constexpr double kEmptyCaption = 13.0;  // the room of a caption without texts
constexpr double kMessageMargin = 10.0;

double heightOf(const std::string& text, const TextAttributes& attributes, double width) {
  return text.empty() ? 0.0 : boundingRect({text, attributes}, {width, 0.0}, TextFit::wrap).height;
}

PhotoView::Places placesFor(const Photo& photo, double width, double height) {
  const double textWidth = std::max(width - 2 * kInset - kTextMargins, 1.0);
  const double titleHeight = heightOf(photo.title, kPhotoPageTitle, textWidth);
  const double descrHeight = heightOf(photo.descr, kPhotoPageDescr, textWidth);
  const double gap = titleHeight > 0.0 && descrHeight > 0.0 ? kTextGap : 0.0;
  const double texts = titleHeight + descrHeight + gap;
  const double caption = texts > 0.0 ? texts : kEmptyCaption;
  const double descrOffset = height - kInset - descrHeight;
  const double room = width - 2 * kInset;
  return {{kInset, kInset, room, height - 2 * kInset - caption - kCaptionGap},
          {kInset, descrOffset - titleHeight - gap, room, titleHeight},
          {kInset, descrOffset, room, descrHeight}};
}

}  // namespace

PhotoView::PhotoView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent)
    : PagedView(context.services.notifications, parent),
      owner_(owner),
      shown_(context.services.clock),
      resolution_(screenResolution(*this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Photo"));
  shown_.setPhotos({nullptr});
  shown_.setShown(isPresented());
  NotificationCenter& center = context.services.notifications;
  for (const NotificationName what : {kPhotoChanged, kPhotoImageChanged}) {
    observations_.push_back(
        center.observe(what, [this](const Notification& notification) { photoChanged(notification); }));
  }
  observations_.push_back(center.observe(
      kCheckObservers,
      [&census = context.observerCensus](const Notification&) { census.checkObservers("PhotoView"); }));
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
}

void PhotoView::close() {
  isClosing = true;
  observations_.clear();
  wakeSubscription_.reset();
  shown_.setPhotos({nullptr});
  accessibleContentChanged();
}

void PhotoView::setPhoto(const std::shared_ptr<Photo>& photo) {
  if (isClosing) return;
  shown_.setPhotos({photo});
  const std::string text = photo ? photo->title + (photo->descr.empty() ? "" : "\n" + photo->descr) : "";
  setAccessibleDescription(QString::fromStdString(text));
  adjustSize();
  needsData();
  accessibleContentChanged();
}

AccessibleNode PhotoView::accessibleTree() const {
  AccessibleNode page;
  page.role = QAccessible::Grouping;
  if (isClosing || !currentPhoto()) return page;
  const Photo& photo = *currentPhoto();
  AccessibleNode picture;
  picture.id = QString::number(photo.photoID);
  picture.role = QAccessible::Graphic;
  picture.name =
      photo.title.empty() ? QStringLiteral("Photo without a title") : QString::fromStdString(photo.title);
  picture.description = QString::fromStdString(photo.descr);
  picture.rect = QRectF(places_.photo.x, places_.photo.y, places_.photo.width, places_.photo.height);
  picture.action = readOnly ? QString() : QStringLiteral("Back to the album");
  page.children.push_back(picture);
  return page;
}

void PhotoView::pressAccessible(const QString&) {
  if (currentPhoto() && !readOnly && !isClosing) owner_.back();
}

void PhotoView::setPresented(bool presented) {
  if (isClosing) return;
  shown_.setShown(presented);
  PagedView::setPresented(presented);
}

void PhotoView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  setNeedsDisplay(true);
}

void PhotoView::adjustSize() {
  resolution_ = screenResolution(*this);
  places_ = currentPhoto() ? placesFor(*currentPhoto(), width(), height()) : Places{};
  setNeedsDisplay(true);
}

void PhotoView::pageDidBecomeCurrent() {
  performUpdates();
  adjustSize();
  repaint();
}

void PhotoView::photoChanged(const Notification& notification) {
  if (!currentPhoto() || notification.integer(kPhotoIDKey) != currentPhoto()->photoID) return;
  const auto rink = currentPhoto()->rinkData.lock();
  if (rink && notification.object.is(rink.get())) setNeedsDisplay(true);
}

void PhotoView::draw(QPainter& painter, const Rect& dirty) {
  if (!currentPhoto()) return;
  const Photo& photo = *currentPhoto();
  if (places_.photo.intersects(dirty)) {
    PhotoPlaceholder placeholder;
    placeholder.frame = PhotoPlaceholder::Frame::box;
    placeholder.margin = kMessageMargin;
    placeholder.message = kPhotoPageTitle;
    drawPhoto(painter, currentPhoto().get(), places_.photo, resolution_, placeholder, *this);
  }
  const auto drawText = [&](const Rect& place, const std::string& text, const TextAttributes& attributes) {
    if (place.height > 0.0) {
      tarvel::draw(painter, place, {text, attributes}, TextFit::wrap, appearanceOf(this));
    }
  };
  drawText(places_.title, photo.title, kPhotoPageTitle);
  drawText(places_.descr, photo.descr, kPhotoPageDescr);
}

bool PhotoView::event(QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) adjustSize();
  if (event->type() == QEvent::PaletteChange) setNeedsDisplay(true);
  return PagedView::event(event);
}

void PhotoView::resizeEvent(QResizeEvent* event) {
  PagedView::resizeEvent(event);
  adjustSize();
}

void PhotoView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && currentPhoto() && !readOnly) owner_.back();
}

void PhotoView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    owner_.back();
  } else {
    PagedView::keyPressEvent(event);
  }
}

void PhotoView::focusInEvent(QFocusEvent*) {
  claimFocusRing(this);
}

void PhotoView::focusOutEvent(QFocusEvent*) {
  claimFocusRing(nullptr);
}

void PhotoView::claimFocusRing(QWidget* view) {
  if (!showFocus) return;
  for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
    if (auto* pane = qobject_cast<WindowPane*>(above)) return pane->setFocusView(view);
  }
}

}  // namespace tarvel
