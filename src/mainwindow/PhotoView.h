#pragma once
#include <memory>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "mainwindow/PhotosViewOwner.h"
#include "model/RinkData.h"
#include "model/ShownPhotos.h"
#include "schedule/PagedView.h"
#include "ui/AccessibleView.h"

namespace tarvel {

/// A page with one photo as large as the page allows, over its title and description. A double click or
/// Escape leads back to the album. Main thread.
class PhotoView : public PagedView, public AccessibleView, Counted<PhotoView> {
  Q_OBJECT
 public:
  using Counted<PhotoView>::liveCount;

  PhotoView(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent = nullptr);

  /// Null for a page without a photo, which is left empty.
  void setPhoto(const std::shared_ptr<Photo>& photo);
  const std::shared_ptr<Photo>& currentPhoto() const { return shown_.photos().front(); }
  /// Where the parts of the page stand, y downwards from its top.
  struct Places {
    Rect photo;
    Rect title;  ///< without a height for a text that the photo lacks
    Rect descr;
    friend bool operator==(const Places&, const Places&) = default;
  };
  const Places& places() const { return places_; }

  bool readOnly = false;   ///< a double click does nothing
  bool showFocus = false;  ///< the pane that the page stands in shows that the page has the keyboard

  AccessibleNode accessibleTree() const override;
  void pressAccessible(const QString& id) override;
  Qt::FocusPolicy focusPolicyInView() const override { return Qt::StrongFocus; }

  void loadData() override;
  void setPresented(bool presented) override;
  void adjustSize() override;
  void pageDidChangeSettings() override { adjustSize(); }
  void pageDidBecomeCurrent() override;
  void close() override;

 protected:
  void draw(QPainter& painter, const Rect& dirty) override;
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void photoChanged(const Notification& notification);
  void claimFocusRing(QWidget* view);

  PhotosViewOwner& owner_;
  ShownPhotos shown_;  ///< always of one entry
  Size resolution_;
  Places places_;
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
