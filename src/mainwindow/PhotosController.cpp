#include "mainwindow/PhotosController.h"

#include <QSlider>
#include <algorithm>
#include <cmath>

#include "mainwindow/PhotoTexts.h"
#include "mainwindow/PhotoView.h"

namespace tarvel {

PhotosController::PhotosController(const WindowContext& context, PhotosHost& host, QWidget* parent)
    : context_(context), host_(host), pane_(new PhotosPane(context, *this, parent)) {
  pagingView().setDelegate(this);
  pagingView().buildPages();
  presentViews();
  QObject::connect(&pane_->sizeSlider(), &QSlider::valueChanged, pane_,
                   [this](int value) { adjustPhotoSize(value); });
  selectionObservation_ =
      context.services.notifications.observe(kSelectionChanged, [this](const Notification& notification) {
        if (notification.object.is(&galleryView()) || notification.object.is(&albumView())) updateControls();
      });
}

PhotosController::~PhotosController() {
  close();
}

void PhotosController::close() {
  if (isClosed_) return;
  isClosed_ = true;
  selectionObservation_ = {};
  pane_->close();
}

void PhotosController::updateControls() {
  if (isShown_ && !isClosed_) host_.updateControls();
}

void PhotosController::chooseRink(const std::shared_ptr<RinkData>& rink) {
  rink_ = rink;
  if (photoViewOption_ != PhotoViewOption::gallery) showGallery();
}

void PhotosController::updateRinkContent() {
  if (photoViewOption_ == PhotoViewOption::gallery) galleryView().setRinkData(rink_.lock());
  if (photoViewOption_ == PhotoViewOption::single) pagingView().reloadAll();
}

void PhotosController::photoCollectionChanged() {
  if (photoViewOption_ != PhotoViewOption::gallery) {
    galleryView().loadData();
    const std::shared_ptr<const PhotoAlbum> album = galleryView().selectedAlbum();
    if (!album) {
      showGallery();
    } else {
      currentAlbum_ = album;
      albumView().setAlbum(album);
    }
  }
  if (photoViewOption_ == PhotoViewOption::single) {
    // Below the first only while the album is empty.
    const std::int64_t last = photoCount() - 1;
    photoIndex_ = std::clamp(photoIndex_, std::min<std::int64_t>(0, last), last);
    pagingView().reloadAll();
  }
  updateControls();
}

void PhotosController::paneShown() {
  isShown_ = true;
  presentViews();
}

void PhotosController::paneHidden() {
  isShown_ = false;
  presentViews();
}

QWidget* PhotosController::keyView() const {
  if (photoViewOption_ == PhotoViewOption::gallery) return &galleryView();
  return photoViewOption_ == PhotoViewOption::album ? &albumView() : nullptr;
}

void PhotosController::prev() {
  if (photoViewOption_ == PhotoViewOption::single) pagingView().glideToPrev();
}

void PhotosController::next() {
  if (photoViewOption_ == PhotoViewOption::single) pagingView().glideToNext();
}

void PhotosController::adjustPhotoSize(double height) {
  if (photoViewOption_ == PhotoViewOption::gallery) galleryView().setPhotoHeight(height);
  if (photoViewOption_ == PhotoViewOption::album) albumView().setPhotoHeight(height);
  host_.markChanged();
}

void PhotosController::restoreSettings(const MainWindowSettings& settings) {
  const auto within = [](double height, int least) {
    return std::isnan(height) ? least : std::clamp<double>(height, least, PhotosPane::kGreatestHeight);
  };
  galleryView().setPhotoHeight(within(settings.galleryViewPhotoHeight, PhotosPane::kLeastGalleryHeight));
  albumView().setPhotoHeight(within(settings.albumViewPhotoHeight, PhotosPane::kLeastAlbumHeight));
}

void PhotosController::addToSettings(MainWindowSettings& settings) const {
  settings.galleryViewPhotoHeight = galleryView().photoHeight();
  settings.albumViewPhotoHeight = albumView().photoHeight();
}

PhotosControls PhotosController::controls() const {
  if (rink_.expired() || photoViewOption_ == PhotoViewOption::gallery) return {};
  if (photoViewOption_ == PhotoViewOption::album) return {.backTitle = "Back to Gallery"};
  return {"Back to Album", true, photoIndex_ > 0, photoIndex_ + 1 < photoCount()};
}

void PhotosController::updatePane() {
  const auto rink = rink_.lock();
  pane_->sizeSlider().setVisible(rink && photoViewOption_ != PhotoViewOption::single);
  if (!rink) return pane_->setTexts({}, {});
  if (photoViewOption_ == PhotoViewOption::gallery) {
    pane_->setSlider(PhotosPane::kLeastGalleryHeight, galleryView().photoHeight());
    const auto& albums = rink->albumList();
    return pane_->setTexts("Gallery", albums ? countText(albums->size(), "Album") : std::string());
  }
  const std::string title = albumTitle(currentAlbum_->title);
  const auto count = currentAlbum_->photoIDs.size();
  if (photoViewOption_ == PhotoViewOption::album) {
    pane_->setSlider(PhotosPane::kLeastAlbumHeight, albumView().photoHeight());
    return pane_->setTexts(title, countText(count, "Photo"));
  }
  pane_->setTexts(title, positionText(photoIndex_, count));
}

}  // namespace tarvel
