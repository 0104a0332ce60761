// The part of `PhotosController` that moves between gallery, album and photo, and fills the pages.
#include <algorithm>

#include "mainwindow/PhotoView.h"
#include "mainwindow/PhotosController.h"
#include "platform/FatalError.h"

namespace tarvel {

void PhotosController::presentViews() {
  // What goes is told first, and what comes counts its photos before the half hour of any could run out.
  const auto present = [this](PhotoViewOption option, bool shown) {
    if (shown != (isShown_ && option == photoViewOption_)) return;
    if (option == PhotoViewOption::gallery) galleryView().setPresented(shown);
    if (option == PhotoViewOption::album) albumView().setPresented(shown);
    if (option == PhotoViewOption::single) pagingView().setPresented(shown);
  };
  for (const bool shown : {false, true}) {
    for (const auto option : {PhotoViewOption::gallery, PhotoViewOption::album, PhotoViewOption::single}) {
      present(option, shown);
    }
  }
}

void PhotosController::setOption(PhotoViewOption option) {
  photoViewOption_ = option;
  pane_->showOnly(option);
  presentViews();
}

void PhotosController::showAlbum(const std::shared_ptr<const PhotoAlbum>& album) {
  currentAlbum_ = album;
  if (albumView().currentAlbum() != album) {
    albumView().scrollToTopWithData();
    albumView().setAlbum(album);
  }
  setOption(PhotoViewOption::album);
  updateControls();
  albumView().setFocus();
}

void PhotosController::showPhoto(const std::shared_ptr<Photo>& photo) {
  const auto& ids = currentAlbum_->photoIDs;
  const auto found = std::find(ids.begin(), ids.end(), photo->photoID);
  if (found == ids.end()) return;
  photoIndex_ = found - ids.begin();
  pagingView().reloadAll();
  setOption(PhotoViewOption::single);
  updateControls();
  pagingView().currView()->setFocus();
}

void PhotosController::back() {
  if (photoViewOption_ == PhotoViewOption::album) {
    setOption(PhotoViewOption::gallery);
    updateControls();
    galleryView().setFocus();
  } else if (photoViewOption_ == PhotoViewOption::single) {
    pagingView().finishGlide();
    setOption(PhotoViewOption::album);
    if (const auto photo = photoAt(photoIndex_)) albumView().selectPhoto(photo);
    releasePages();
    updateControls();
    albumView().setFocus();
  }
}

void PhotosController::showGallery() {
  if (photoViewOption_ == PhotoViewOption::single) {
    pagingView().finishGlide();
    releasePages();
  }
  setOption(PhotoViewOption::gallery);
  updateControls();
  if (isShown_) galleryView().setFocus();
}

void PhotosController::releasePages() {
  for (PagedView* view : {pagingView().prevView(), pagingView().currView(), pagingView().nextView()}) {
    if (auto* page = dynamic_cast<PhotoView*>(view)) page->setPhoto(nullptr);
  }
}

std::int64_t PhotosController::photoCount() const {
  return currentAlbum_ ? static_cast<std::int64_t>(currentAlbum_->photoIDs.size()) : 0;
}

std::shared_ptr<Photo> PhotosController::photoAt(std::int64_t index) const {
  const auto rink = rink_.lock();
  if (!rink || index < 0 || index >= photoCount()) return nullptr;
  return rink->photo(currentAlbum_->photoIDs[static_cast<std::size_t>(index)]);
}

PagedView* PhotosController::newPagedViewForPagingView(PagingView&) {
  return new PhotoView(context_, *this);
}

void PhotosController::loadView(PagedView& page, PagingView& pagingView, int offset) {
  reloadView(page, pagingView, offset);
}

void PhotosController::reloadView(PagedView& page, PagingView& from, int offset) {
  if (&from != &pagingView()) fatalError("not the photos' paging view");
  dynamic_cast<PhotoView&>(page).setPhoto(photoAt(photoIndex_ + offset));
}

bool PhotosController::pagesBeforeCurrent(PagingView&) {
  return photoIndex_ > 0;
}

bool PhotosController::pagesAfterCurrent(PagingView&) {
  return photoIndex_ + 1 < photoCount();
}

void PhotosController::pagingViewDidGotoNextPage(PagingView&) {
  turned(1);
}

void PhotosController::pagingViewDidGotoPrevPage(PagingView&) {
  turned(-1);
}

void PhotosController::turned(std::int64_t by) {
  photoIndex_ += by;
  updateControls();
}

}  // namespace tarvel
