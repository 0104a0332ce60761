#include "mainwindow/GalleryView.h"

#include <algorithm>

#include "mainwindow/RinkIdentity.h"

namespace tarvel {

namespace {

/// An id may name a photo that the collection lacks.
std::shared_ptr<Photo> firstPhoto(const PhotoAlbum& album, RinkData& rink) {
  for (const std::int64_t photoID : album.photoIDs) {
    if (auto photo = rink.photo(photoID)) return photo;
  }
  return nullptr;
}

}  // namespace

GalleryView::GalleryView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent)
    : PhotoCellsView(context, owner, "GalleryView", kSmallMargin, "Empty Album", parent) {
  setAccessibleName(QStringLiteral("Photo Albums"));
  scrollToTopWithData();
}

void GalleryView::setRinkData(const std::shared_ptr<RinkData>& rinkData) {
  if (isSameRink(rinkData_, rinkData)) return;
  rinkData_ = rinkData;
  scrollToTopWithData();
  needsData();
}

void GalleryView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  const auto rink = rinkData_.lock();
  albumList_ = rink ? rink->albumList().value_or(AlbumList()) : AlbumList();
  PhotoList covers;
  covers.reserve(albumList_.size());
  for (const auto& album : albumList_) covers.push_back(firstPhoto(*album, *rink));
  setCells(std::move(covers));
  const auto again = std::find_if(albumList_.begin(), albumList_.end(), [this](const auto& album) {
    return selectedAlbum_ && album->albumID == selectedAlbum_->albumID;
  });
  selectAlbum(again == albumList_.end() ? nullptr : *again);
  describe();
}

void GalleryView::selectAlbum(const std::shared_ptr<const PhotoAlbum>& album) {
  if (album == selectedAlbum_) return;
  selectedAlbum_ = album;
  describe();
  setNeedsDisplay(true);
  notifications().postNotification(kSelectionChanged, this);
}

PhotoCellsView::Caption GalleryView::caption(std::size_t cell) const {
  const PhotoAlbum& album = *albumList_[cell];
  return {album.title, album.descr, std::to_string(album.photoIDs.size())};
}

std::string GalleryView::messageWithoutCells() const {
  return rinkData_.expired() ? "No Rink Selected" : "No Albums";
}

std::optional<std::size_t> GalleryView::selectedCell() const {
  const auto found = std::find(albumList_.begin(), albumList_.end(), selectedAlbum_);
  if (!selectedAlbum_ || found == albumList_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - albumList_.begin());
}

void GalleryView::selectCell(std::optional<std::size_t> cell) {
  selectAlbum(cell ? albumList_[*cell] : nullptr);
}

void GalleryView::openCell(std::size_t cell) {
  owner().showAlbum(std::shared_ptr<const PhotoAlbum>(albumList_[cell]));
}

void GalleryView::cellClicked(std::optional<std::size_t> cell, Clicks clicks, Qt::KeyboardModifiers) {
  selectCell(cell);
  if (cell && clicks == Clicks::two) openCell(*cell);
}

}  // namespace tarvel
