#pragma once
#include <memory>

#include "auxwindows/WindowContext.h"
#include "mainwindow/InfoLayout.h"
#include "model/RinkData.h"
#include "ui/ImageDisplayView.h"
#include "ui/InfoView.h"
#include "ui/WindowPane.h"

class QPushButton;

namespace tarvel {

/// The pane with a rink's card: logo, name, address and telephone, a cover photo, and buttons for the rink's
/// website and a map. Main thread.
class InfoPane : public WindowPane {
  Q_OBJECT
 public:
  explicit InfoPane(const WindowContext& context, QWidget* parent = nullptr);

  /// Fills the pane anew: for another rink, or none, and when the rink's card or photo has changed. Neither
  /// is owned. `rinkData` may be null while `rinkInfo` isn't.
  void setRink(const std::shared_ptr<RinkInfo>& rinkInfo, const std::shared_ptr<RinkData>& rinkData);
  /// Another rink, or none, whose website and place the commands open also while the pane doesn't show; the
  /// pane's content waits for `setRink`.
  void setRinkInfo(const std::shared_ptr<RinkInfo>& rinkInfo) { rinkInfo_ = rinkInfo; }
  /// The photo on show, which counts this view; null for none. It may have no image yet.
  const std::shared_ptr<Photo>& coverPhoto() const { return coverPhoto_; }
  void logoChanged();

  /// Open the rink's website, or its place on a map. An address that is none does nothing.
  void visitWebsite();
  void locateOnMap();

  BoxView& infoBoxView() const { return *infoBoxView_; }
  InfoView& rinkInfoField() const { return *rinkInfoField_; }
  InfoView& noRinkSelectedLabel() const { return *noRinkSelectedLabel_; }
  ImageDisplayView& rinkInfoLogoView() const { return *rinkInfoLogoView_; }
  ImageDisplayView& rinkInfoPhotoView() const { return *rinkInfoPhotoView_; }
  QPushButton& visitWebsiteButton() const { return *visitWebsiteButton_; }
  QPushButton& locateOnMapButton() const { return *locateOnMapButton_; }

  /// Lets go of the photo. Final; not the toolkit's operation of this name.
  void close();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void makeViews();
  void updateText();
  void showPhoto(const std::shared_ptr<Photo>& photo);
  void updateImage();
  void updateControls();
  void layoutViews();
  std::shared_ptr<const Image> logo() const;
  InfoLayout layoutFor(InfoLayout::Photo photo) const;

  Workspace& workspace_;
  const Clock& clock_;
  std::weak_ptr<RinkInfo> rinkInfo_;
  std::shared_ptr<Photo> coverPhoto_;
  std::shared_ptr<const Image> coverImage_;
  // Children:
  BoxView* infoBoxView_ = nullptr;
  InfoView* rinkInfoField_ = nullptr;
  InfoView* noRinkSelectedLabel_ = nullptr;
  ImageDisplayView* rinkInfoLogoView_ = nullptr;
  ImageDisplayView* rinkInfoPhotoView_ = nullptr;
  QPushButton* visitWebsiteButton_ = nullptr;
  QPushButton* locateOnMapButton_ = nullptr;
};

}  // namespace tarvel
