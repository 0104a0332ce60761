#pragma once
#include <memory>
#include <string>

#include "mainwindow/MainWindowSettings.h"
#include "mainwindow/PhotosHost.h"
#include "mainwindow/PhotosPane.h"
#include "mainwindow/PhotosViewOwner.h"
#include "schedule/PagingViewDelegateProtocol.h"

namespace tarvel {

class PhotoView;

/// What the title row offers on the photos' pane.
struct PhotosControls {
  std::string backTitle;  ///< empty where there is nothing to go back to
  bool showsArrows = false;
  bool canGoBack = false;  ///< to the photo before; with the next, the arrows
  bool canGoForward = false;
  friend bool operator==(const PhotosControls&, const PhotosControls&) = default;
};

/// Runs the photos' pane of a main window: whether the gallery, an album or one photo shows, which one, and
/// how large the pictures are. The window's controller owns it, tells it of rink, settings and changes of the
/// model, and lets go of it by `close`. Main thread.
class PhotosController : private PhotosViewOwner, private PagingViewDelegateProtocol {
 public:
  /// Makes the pane, as a child of `parent`. The host outlives it.
  PhotosController(const WindowContext& context, PhotosHost& host, QWidget* parent);
  ~PhotosController() override;
  PhotosController(const PhotosController&) = delete;
  PhotosController& operator=(const PhotosController&) = delete;

  PhotosPane& pane() const { return *pane_; }
  PhotoViewOption photoViewOption() const { return photoViewOption_; }
  const std::shared_ptr<const PhotoAlbum>& currentAlbum() const { return currentAlbum_; }
  /// The position of the shown photo in its album, from 0.
  std::int64_t photoIndex() const { return photoIndex_; }

  /// Takes over another rink, or none, and goes to the gallery. `updateRinkContent` is to follow.
  void chooseRink(const std::shared_ptr<RinkData>& rink);
  void updateRinkContent();
  /// The rink's collection is another one.
  void photoCollectionChanged();

  // The pane comes and goes:
  void paneShown();
  void paneHidden();
  /// The view that is to have the keyboard when the pane shows without the rink list, and to follow the list
  /// otherwise; null while a single photo shows.
  QWidget* keyView() const;

  // The user's commands. Each does nothing where it has no meaning.
  void prev();
  void next();
  void back() override;
  /// The slider has been moved.
  void adjustPhotoSize(double height);

  void restoreSettings(const MainWindowSettings& settings);
  void addToSettings(MainWindowSettings& settings) const;
  PhotosControls controls() const;
  /// Brings the pane's title, count and slider up to date.
  void updatePane();
  /// Lets go of the pages and of all observations; final.
  void close();

 private:
  // PhotosViewOwner:
  void showAlbum(const std::shared_ptr<const PhotoAlbum>& album) override;
  void showPhoto(const std::shared_ptr<Photo>& photo) override;

  // PagingViewDelegateProtocol:
  PagedView* newPagedViewForPagingView(PagingView& pagingView) override;
  void loadView(PagedView& page, PagingView& pagingView, int offset) override;
  void reloadView(PagedView& page, PagingView& pagingView, int offset) override;
  bool pagesBeforeCurrent(PagingView& pagingView) override;
  bool pagesAfterCurrent(PagingView& pagingView) override;
  void pagingViewDidGotoNextPage(PagingView& pagingView) override;
  void pagingViewDidGotoPrevPage(PagingView& pagingView) override;

  void showGallery();
  /// Shows the views of the option, and tells them all whether they are on show.
  void setOption(PhotoViewOption option);
  void presentViews();
  void releasePages();
  void turned(std::int64_t by);
  std::shared_ptr<Photo> photoAt(std::int64_t index) const;
  std::int64_t photoCount() const;
  void updateControls();

  GalleryView& galleryView() const { return pane_->galleryView(); }
  AlbumView& albumView() const { return pane_->albumView(); }
  PagingView& pagingView() const { return pane_->photoPagingView(); }

  WindowContext context_;
  PhotosHost& host_;
  std::weak_ptr<RinkData> rink_;
  PhotoViewOption photoViewOption_ = PhotoViewOption::gallery;
  std::shared_ptr<const PhotoAlbum> currentAlbum_;
  std::int64_t photoIndex_ = 0;
  bool isShown_ = false;  ///< the photos' pane is the window's
  bool isClosed_ = false;
  PhotosPane* pane_;  ///< a child of the window
  Observation selectionObservation_;
};

}  // namespace tarvel
