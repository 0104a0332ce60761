#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "auxwindows/WindowContext.h"
#include "mainwindow/CellFlowLayout.h"
#include "mainwindow/PhotosViewOwner.h"
#include "model/RinkData.h"
#include "model/ShownPhotos.h"
#include "schedule/MainStateWatch.h"
#include "ui/AccessibleView.h"
#include "ui/DataLoadingView.h"

namespace tarvel {

/// What the gallery and the album share: a flow of cells in a scroll area, each with a picture and, where
/// pictures are high enough, a caption; selection by mouse and keys. Only the cells that are drawn have their
/// images fetched and decoded. The deriving view tells what the cells are. Main thread.
class PhotoCellsView : public DataLoadingView, public AccessibleView {
  Q_OBJECT
 public:
  double photoHeight() const { return photoHeight_; }
  /// In logical pixels. Lays out anew, at once or with the pass that is due.
  void setPhotoHeight(double height);
  const CellFlowLayout& layout() const { return layout_; }
  /// Dots per inch of the screen; chooses the versions.
  Size resolution() const { return resolution_; }
  /// True for the first responder of the main window; it chooses the selection's colour.
  bool isActive() const { return isActive_; }
  /// The next data pass scrolls to the top.
  void scrollToTopWithData() { scrollToTop_ = true; }

  AccessibleNode accessibleTree() const override;
  QString accessibleFocus() const override;
  void pressAccessible(const QString& id) override;
  void focusAccessible(const QString& id) override;

  void setPresented(bool presented) override;
  /// Lays the cells out for the room around the view, and fits its height to them. Does nothing while the
  /// data is out of date.
  void adjustLayout();
  /// Stops observing, and counts as no view of any photo; final. Not the toolkit's operation of this name.
  void close();

 protected:
  enum class Clicks { one, two };
  struct Caption {
    std::string title;
    std::string descr;
    std::string count;  ///< stands at the right of the title; may be empty
  };

  /// `name` is the class's, for the census of observers; `smallMargin` the margin of cells without captions.
  PhotoCellsView(const WindowContext& context, PhotosViewOwner& owner, const char* name, double smallMargin,
                 std::string_view textWithoutPhoto, QWidget* parent);

  virtual Caption caption(std::size_t cell) const = 0;
  virtual std::string messageWithoutCells() const = 0;
  virtual std::optional<std::size_t> selectedCell() const = 0;
  /// None selects none.
  virtual void selectCell(std::optional<std::size_t> cell) = 0;
  virtual void openCell(std::size_t cell) = 0;
  virtual void cellClicked(std::optional<std::size_t> cell, Clicks clicks,
                           Qt::KeyboardModifiers modifiers) = 0;
  virtual void mouseReleased(QPointF, Clicks) {}
  /// False to pass the key on.
  virtual bool escape() { return false; }
  virtual std::shared_ptr<RinkData> shownRink() const = 0;

  /// To be called by the data pass: the cells are these photos (null for a cell without one).
  void setCells(PhotoList photos);
  const PhotoList& photos() const { return shown_.photos(); }
  PhotosViewOwner& owner() const { return owner_; }
  void scrollToCell(std::size_t cell);
  /// Tells screen readers that the cells, or which of them is selected, have changed.
  void describe();

  void draw(QPainter& painter, const Rect& dirty) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// The sizes of a cell's texts; what they are at a width is kept for the next layout.
  struct Measures {
    Size title;
    Size descr;
    double countWidth = 0.0;
    double forWidth = -1.0;
    double height = 0.0;
  };

  bool concernsMyRink(const Notification& notification) const;
  void photoChanged(const Notification& notification);
  void attachToParent();
  double margin() const;
  Measures& measuresOf(std::size_t cell);
  double captionHeight(std::size_t cell, double width);
  void drawMessage(QPainter& painter) const;
  void drawCell(QPainter& painter, std::size_t cell);
  void drawCaption(QPainter& painter, std::size_t cell);
  QString spokenCell(std::size_t cell) const;
  std::optional<std::size_t> cellOf(const QString& id) const;
  bool takesKey(const QKeyEvent& event);
  void updateActive();

  PhotosViewOwner& owner_;
  double smallMargin_;
  std::string_view textWithoutPhoto_;
  ShownPhotos shown_;
  double photoHeight_ = 200.0;
  Size resolution_;
  CellFlowLayout layout_;
  bool isLaidOut_ = false;
  int layoutDepth_ = 0;
  std::vector<std::optional<Measures>> measures_;  ///< by cell, as they are needed
  bool scrollToTop_ = false;
  Clicks lastClicks_ = Clicks::one;
  bool isFirstResponder_ = false;
  bool cameByKeys_ = false;  ///< the user went to the view by the keyboard
  bool isActive_ = false;
  MainStateWatch mainState_;
  std::vector<Observation> observations_;
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
