#pragma once
#include <QRegion>

#include "platform/Geometry.h"
#include "ui/NamedColors.h"
#include "ui/ScrollableView.h"

namespace tarvel {

/// The base of the views that show model data. A change of the model only marks the view out of date, and one
/// pass reloads it when the main loop is idle; meanwhile nothing is drawn of data that may be half gone. Main
/// thread.
///
/// Painting: a subclass draws in `draw` and asks for it with `setNeedsDisplay`, not with the toolkit's
/// `update`. The toolkit may ask for painting at any time, and a request once made can't be withdrawn, so the
/// filter stands at the end as well: while the view is out of date or closing, a paint event draws nothing of
/// the subclass. What the view drew before stays on the screen if its pixels are known to be intact; where
/// they are not, because the view or its window has moved, changed size or come up since, the area is filled
/// with the background. What was not drawn in this way is drawn after the pass.
class DataLoadingView : public ScrollableView {
  Q_OBJECT
 public:
  explicit DataLoadingView(NotificationCenter& notifications, QWidget* parent = nullptr);
  ~DataLoadingView() override;

  /// Whether the view counts as on show, by its owner's word; true at start. One that is not costs nothing:
  /// it remembers that it is out of date and reloads when it is presented again. It has nothing to do with
  /// whether the widget is visible to the toolkit.
  virtual bool isPresented() const { return isPresented_; }
  virtual void setPresented(bool presented);

  /// Marks the data out of date. For observers of the model.
  virtual void needsData();
  /// The pass. Runs by itself when the loop is idle.
  virtual void performUpdates();
  /// Reads the model. A subclass must replace it, clear `isAwaitingData` in it first thing, return if the
  /// view is closing, and ask for a redraw.
  virtual void loadData();

  /// True asks for a redraw, which is granted only if the view is up to date, presented and not closing.
  /// False grants none: a redraw that is pending is dropped as long as the view is out of date.
  void setNeedsDisplay(bool needed);

  bool isAwaitingUpdates = false;  ///< the pass is in the idle queue
  bool isAwaitingData = false;
  // Further stages of the pass. A subclass that sets one must replace `performUpdates`, which knows no way to
  // do it.
  bool isAwaitingData2 = false;
  bool isAwaitingFilter = false;
  bool isAwaitingLayout = false;
  bool isAwaitingStatusUpdate = false;
  bool isClosing = false;  ///< set by the subclass's closing operation, and final

 protected:
  /// Draws what meets the dirty rectangle, in the view's coordinates. The area has been filled with the
  /// background.
  virtual void draw(QPainter& painter, const Rect& dirty) = 0;
  /// What lies under everything that the view draws. Opaque.
  virtual QColor backgroundColor() const { return color(kContentBackground, this); }

  void paintEvent(QPaintEvent* event) final;
  void showEvent(QShowEvent* event) override;

 private:
  /// All that decides whether the pixels of an earlier drawing are still where the view is.
  struct Canvas {
    QSize view;
    QSize window;
    QPoint place;
    qreal ratio = 0.0;
    friend bool operator==(const Canvas&, const Canvas&) = default;
  };

  bool isAwaitingAny() const;
  void enqueueUpdates();
  Canvas currentCanvas() const;
  void paintStale(QPainter& painter, const QRegion& region);

  Observation updateObservation_;
  bool isPresented_ = true;
  Canvas drawnCanvas_;
  QRegion drawn_;  ///< what `draw` has drawn on that canvas
  bool skippedDrawing_ = false;
};

}  // namespace tarvel
