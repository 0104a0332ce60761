#pragma once
#include "mainwindow/PhotoCellsView.h"

namespace tarvel {

/// The albums of a rink, each by its first photo. A double click or Return opens one. Main thread.
class GalleryView : public PhotoCellsView, Counted<GalleryView> {
  Q_OBJECT
 public:
  using Counted<GalleryView>::liveCount;
  static constexpr double kSmallMargin = 1.0;

  GalleryView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent = nullptr);

  /// The rink to show, not owned; null while none is selected.
  void setRinkData(const std::shared_ptr<RinkData>& rinkData);
  /// "selection changed" follows if it is another one. Null selects none.
  void selectAlbum(const std::shared_ptr<const PhotoAlbum>& album);
  const AlbumList& albumList() const { return albumList_; }
  const std::shared_ptr<const PhotoAlbum>& selectedAlbum() const { return selectedAlbum_; }

  void loadData() override;

 protected:
  Caption caption(std::size_t cell) const override;
  std::string messageWithoutCells() const override;
  std::optional<std::size_t> selectedCell() const override;
  void selectCell(std::optional<std::size_t> cell) override;
  void openCell(std::size_t cell) override;
  void cellClicked(std::optional<std::size_t> cell, Clicks clicks, Qt::KeyboardModifiers modifiers) override;
  std::shared_ptr<RinkData> shownRink() const override { return rinkData_.lock(); }

 private:
  std::weak_ptr<RinkData> rinkData_;
  AlbumList albumList_;
  std::shared_ptr<const PhotoAlbum> selectedAlbum_;
};

}  // namespace tarvel
