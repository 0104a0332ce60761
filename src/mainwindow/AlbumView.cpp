#include "mainwindow/AlbumView.h"

#include <algorithm>

namespace tarvel {

AlbumView::AlbumView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent)
    : PhotoCellsView(context, owner, "AlbumView", kSmallMargin, "No Image", parent) {
  setAccessibleName(QStringLiteral("Photos"));
}

void AlbumView::setAlbum(const std::shared_ptr<const PhotoAlbum>& album) {
  if (album == currentAlbum_) return;
  currentAlbum_ = album;
  needsData();
}

std::shared_ptr<RinkData> AlbumView::shownRink() const {
  return currentAlbum_ ? currentAlbum_->rinkData.lock() : nullptr;
}

void AlbumView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  PhotoList found;
  if (const auto rink = shownRink()) {
    found.reserve(currentAlbum_->photoIDs.size());
    for (const std::int64_t photoID : currentAlbum_->photoIDs) {
      if (auto photo = rink->photo(photoID)) found.push_back(std::move(photo));
    }
  }
  setCells(std::move(found));
  firstClickPhoto_ = nullptr;
  const auto again = std::find_if(photos().begin(), photos().end(), [this](const auto& photo) {
    return selectedPhoto_ && photo->photoID == selectedPhoto_->photoID;
  });
  selectPhoto(again == photos().end() ? nullptr : *again);
  describe();
}

void AlbumView::selectPhoto(const std::shared_ptr<Photo>& photo) {
  const bool changes = photo != selectedPhoto_;
  if (!changes && !photo) return;
  selectedPhoto_ = photo;
  if (changes) {
    describe();
    setNeedsDisplay(true);
    notifications().postNotification(kSelectionChanged, this);
  }
  if (const auto cell = selectedCell()) scrollToCell(*cell);
}

PhotoCellsView::Caption AlbumView::caption(std::size_t cell) const {
  return {photos()[cell]->title, photos()[cell]->descr, {}};
}

std::optional<std::size_t> AlbumView::selectedCell() const {
  if (!selectedPhoto_) return std::nullopt;
  if (selectedPosition_ < photos().size() && photos()[selectedPosition_] == selectedPhoto_) {
    return selectedPosition_;
  }
  const auto found = std::find(photos().begin(), photos().end(), selectedPhoto_);
  if (found == photos().end()) return std::nullopt;
  return static_cast<std::size_t>(found - photos().begin());
}

void AlbumView::selectCell(std::optional<std::size_t> cell) {
  if (cell && cell != selectedCell()) {
    selectedPosition_ = *cell;
    setNeedsDisplay(true);
  }
  selectPhoto(cell ? photos()[*cell] : nullptr);
}

void AlbumView::openCell(std::size_t cell) {
  owner().showPhoto(std::shared_ptr<Photo>(photos()[cell]));
}

void AlbumView::cellClicked(std::optional<std::size_t> cell, Clicks, Qt::KeyboardModifiers modifiers) {
  const bool again = cell && photos()[*cell] == selectedPhoto_;
  selectCell(again && (modifiers & Qt::ControlModifier) ? std::nullopt : cell);
}

void AlbumView::mouseReleased(QPointF place, Clicks clicks) {
  if (clicks == Clicks::one) {
    firstClickPhoto_ = selectedPhoto_;
    return;
  }
  const auto cell = selectedCell();
  if (cell && selectedPhoto_ == firstClickPhoto_ && layout().rowAt(place.y())) openCell(*cell);
}

bool AlbumView::escape() {
  owner().back();
  return true;
}

}  // namespace tarvel
