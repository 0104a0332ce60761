#pragma once
#include <string>

#include "mainwindow/AlbumView.h"
#include "mainwindow/GalleryView.h"
#include "mainwindow/PhotoViewOption.h"
#include "mainwindow/TextLabel.h"
#include "schedule/PagingView.h"
#include "schedule/SwipeGestureController.h"
#include "ui/WindowPane.h"

class QScrollArea;
class QSlider;

namespace tarvel {

class ContentBox;

/// The pane that shows a rink's photos: gallery, album and single photo, of which one is to be seen, under a
/// line with a title, a count and the slider for the pictures' size. Views alone; `PhotosController` makes it
/// and runs it.
class PhotosPane : public WindowPane {
  Q_OBJECT
 public:
  static constexpr int kLeastGalleryHeight = 120;
  static constexpr int kLeastAlbumHeight = 50;
  static constexpr int kGreatestHeight = 300;

  PhotosPane(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent);

  GalleryView& galleryView() const { return *galleryView_; }
  AlbumView& albumView() const { return *albumView_; }
  PagingView& photoPagingView() const { return *photoPagingView_; }
  QScrollArea& galleryScrollView() const { return *galleryScrollView_; }
  QScrollArea& albumScrollView() const { return *albumScrollView_; }
  QScrollArea& photoScrollView() const { return *photoScrollView_; }
  QSlider& sizeSlider() const { return *sizeSlider_; }
  TextLabel& titleLabel() const { return *titleLabel_; }
  TextLabel& photoNumberField() const { return *photoNumberField_; }

  /// Hides the two others.
  void showOnly(PhotoViewOption option);
  /// Says nothing about it: the slider's signal is for the user's own changes.
  void setSlider(int least, double value);
  void setTexts(const std::string& title, const std::string& number);
  /// Closes the views as well; final. Not the toolkit's operation of this name.
  void close();

 private:
  QWidget* makeTitleLine();
  ContentBox* boxed(QScrollArea& area);

  // Children:
  TextLabel* titleLabel_;
  TextLabel* photoNumberField_;
  QSlider* sizeSlider_;
  QScrollArea* galleryScrollView_;
  QScrollArea* albumScrollView_;
  QScrollArea* photoScrollView_;
  ContentBox* galleryBox_;
  ContentBox* albumBox_;
  ContentBox* photoBox_;
  GalleryView* galleryView_;
  AlbumView* albumView_;
  PagingView* photoPagingView_;
  SwipeGestureController* photoSwipeController_;
};

}  // namespace tarvel
