#pragma once
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <memory>

#include "auxwindows/WindowContext.h"
#include "schedule/SwipeTracker.h"

class QAbstractScrollArea;
class QTouchEvent;
class QWheelEvent;

namespace tarvel {

class PagingView;

/// Turns swipes into page turns: a trackpad's sideways scrolling, the mouse wheel with Shift (a page a
/// notch), and a finger on a touch screen. It listens at the viewport of the scroll area around the paging
/// view, which is its parent. What goes up and down scrolls that area, and a tap stays a click. Main thread.
class SwipeGestureController : public QObject, private Counted<SwipeGestureController> {
  Q_OBJECT
 public:
  using Counted<SwipeGestureController>::liveCount;

  SwipeGestureController(const WindowContext& context, PagingView& pagingView,
                         QAbstractScrollArea& scrollArea);
  ~SwipeGestureController() override;

  bool swipeInProgress() const { return swipeInProgress_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool wheel(const QWheelEvent& event);
  bool trackpad(const QWheelEvent& event, QPointF delta);
  bool touch(const QTouchEvent& event);
  void begin();
  bool move(QPointF delta);
  void end();
  void tap(QPointF place);

  Services services_;
  QAbstractScrollArea& scrollArea_;
  QPointer<PagingView> pagingView_;
  SwipeTracker tracker_;
  bool swipeInProgress_ = false;
  bool turned_ = false;    ///< the page has been turned by this swipe; what follows of it is passed over
  double lastMove_ = 0.0;  ///< seconds of the monotonic clock
  QPointF lastTouch_;
  std::unique_ptr<Timer> trackpadEnd_;
};

}  // namespace tarvel
