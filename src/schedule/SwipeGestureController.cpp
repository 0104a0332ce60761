#include "schedule/SwipeGestureController.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTouchEvent>
#include <QWheelEvent>

#include "schedule/PagingView.h"

namespace tarvel {

namespace {

/// Seconds. A trackpad whose driver tells no end of the gesture has ended when nothing more comes for this
/// long.
constexpr double kTrackpadSilence = 0.12;
constexpr int kNotch = 120;
/// A trackpad whose driver only speaks of wheels tells less than a notch at a time; logical pixels of one
/// such unit.
constexpr double kPixelsPerUnit = 0.5;

}  // namespace

SwipeGestureController::SwipeGestureController(const WindowContext& context, PagingView& pagingView,
                                               QAbstractScrollArea& scrollArea)
    : QObject(&scrollArea), services_(context.services), scrollArea_(scrollArea), pagingView_(&pagingView) {
  scrollArea.viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
  scrollArea.viewport()->installEventFilter(this);
}

SwipeGestureController::~SwipeGestureController() = default;

bool SwipeGestureController::eventFilter(QObject* watched, QEvent* event) {
  if (!pagingView_ || !pagingView_->hasPages() || !pagingView_->delegate()) return false;
  switch (event->type()) {
    case QEvent::Wheel:
      return wheel(static_cast<const QWheelEvent&>(*event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      return touch(static_cast<const QTouchEvent&>(*event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

bool SwipeGestureController::wheel(const QWheelEvent& event) {
  if (!event.pixelDelta().isNull() || event.phase() == Qt::ScrollEnd)
    return trackpad(event, event.pixelDelta());
  const QPoint units = event.angleDelta();
  if (units.x() % kNotch != 0) return trackpad(event, QPointF(units) * kPixelsPerUnit);
  // Some platforms turn the axes round themselves while a modifier is held.
  const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
  const int sideways = units.x() != 0 ? units.x() : shift ? units.y() : 0;
  // A fine wheel tells parts of a notch, each of which is no page of its own.
  if (sideways % kNotch != 0) return trackpad(event, QPointF(sideways, 0) * kPixelsPerUnit);
  if (sideways == 0) return false;
  if (sideways < 0) {
    pagingView_->glideToNext();
  } else {
    pagingView_->glideToPrev();
  }
  return true;
}

bool SwipeGestureController::trackpad(const QWheelEvent& event, QPointF delta) {
  // What rolls on after the fingers have left belongs to the gesture that has ended.
  if (event.phase() == Qt::ScrollMomentum) return tracker_.direction() == SwipeTracker::Direction::horizontal;
  if (event.phase() == Qt::ScrollBegin || (!swipeInProgress_ && event.phase() != Qt::ScrollEnd)) begin();
  const bool taken = move(delta);
  if (event.phase() == Qt::ScrollEnd) {
    end();
  } else if (event.phase() == Qt::NoScrollPhase) {
    trackpadEnd_ = services_.mainLoop.after(kTrackpadSilence, [this] { end(); });
  }
  return taken;
}

bool SwipeGestureController::touch(const QTouchEvent& event) {
  if (event.points().isEmpty()) return false;
  const QPointF place = event.points().constFirst().position();
  if (event.type() == QEvent::TouchBegin) {
    begin();
    lastTouch_ = place;
    return true;  // only who takes the beginning is told of the rest
  }
  const QPointF delta = place - lastTouch_;
  lastTouch_ = place;
  move(delta);
  if (tracker_.direction() == SwipeTracker::Direction::vertical) {
    QScrollBar& bar = *scrollArea_.verticalScrollBar();
    bar.setValue(bar.value() - qRound(delta.y()));
  }
  if (event.type() == QEvent::TouchUpdate) return true;
  const bool tapped =
      event.type() == QEvent::TouchEnd && tracker_.direction() == SwipeTracker::Direction::undecided;
  end();
  if (tapped) tap(place);
  return true;
}

void SwipeGestureController::tap(QPointF place) {
  QWidget& viewport = *scrollArea_.viewport();
  QWidget* target = viewport.childAt(place.toPoint());
  if (!target) return;
  const QPointF global = viewport.mapToGlobal(place);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const auto buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent click(type, target->mapFromGlobal(global), global, Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &click);
  }
}

void SwipeGestureController::begin() {
  PagingViewDelegateProtocol& delegate = *pagingView_->delegate();
  pagingView_->finishGlide();
  tracker_.begin(pagingView_->width(), delegate.pagesAfterCurrent(*pagingView_) ? -1.0 : 0.0,
                 delegate.pagesBeforeCurrent(*pagingView_) ? 1.0 : 0.0);
  swipeInProgress_ = true;
  turned_ = false;
  lastMove_ = services_.clock.monotonicSeconds();
}

bool SwipeGestureController::move(QPointF delta) {
  if (!swipeInProgress_) return false;
  const double now = services_.clock.monotonicSeconds();
  const double seconds = now - lastMove_;
  lastMove_ = now;
  const std::optional<double> amount = tracker_.move(delta.x(), delta.y(), seconds);
  if (!amount) return false;
  if (!turned_) turned_ = pagingView_->gesture(*amount);
  return true;
}

void SwipeGestureController::end() {
  trackpadEnd_.reset();
  if (!swipeInProgress_) return;
  swipeInProgress_ = false;
  if (!turned_ && pagingView_ && pagingView_->isTurning()) pagingView_->glideTo(tracker_.end());
}

}  // namespace tarvel
