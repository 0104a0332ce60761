#pragma once
#include "mainwindow/PhotoCellsView.h"

namespace tarvel {

/// The photos of one album. A double click or Return opens one, Escape leads back to the gallery. Main
/// thread.
class AlbumView : public PhotoCellsView, Counted<AlbumView> {
  Q_OBJECT
 public:
  using Counted<AlbumView>::liveCount;
  static constexpr double kSmallMargin = 2.0;

  AlbumView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent = nullptr);

  /// Null for none.
  void setAlbum(const std::shared_ptr<const PhotoAlbum>& album);
  const std::shared_ptr<const PhotoAlbum>& currentAlbum() const { return currentAlbum_; }
  /// Selects the photo and scrolls to it; null selects none. "selection changed" follows if it is another
  /// one.
  void selectPhoto(const std::shared_ptr<Photo>& photo);
  const PhotoList& photoList() const { return photos(); }
  const std::shared_ptr<Photo>& selectedPhoto() const { return selectedPhoto_; }

  void loadData() override;

 protected:
  Caption caption(std::size_t cell) const override;
  std::string messageWithoutCells() const override { return "No Photos"; }
  std::optional<std::size_t> selectedCell() const override;
  void selectCell(std::optional<std::size_t> cell) override;
  void openCell(std::size_t cell) override;
  void cellClicked(std::optional<std::size_t> cell, Clicks clicks, Qt::KeyboardModifiers modifiers) override;
  void mouseReleased(QPointF place, Clicks clicks) override;
  bool escape() override;
  std::shared_ptr<RinkData> shownRink() const override;

 private:
  std::shared_ptr<const PhotoAlbum> currentAlbum_;
  std::shared_ptr<Photo> selectedPhoto_;
  std::size_t selectedPosition_ = 0;        ///< tells the cells of a photo that the album has twice
  std::shared_ptr<Photo> firstClickPhoto_;  ///< a double click opens only what both of its clicks were on
};

}  // namespace tarvel
