#include "app/CursorHider.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <cmath>

namespace tarvel {
namespace {

/// With more time than this left the timer stays as it is, so that a moving mouse doesn't set it many times a
/// second.
constexpr double kFreshSeconds = 9.0;

bool isActivity(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const Qt::MouseButton button = static_cast<const QMouseEvent&>(event).button();
      return button == Qt::LeftButton || button == Qt::RightButton;
    }
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::Wheel:
      return true;
    default:
      return false;
  }
}

}  // namespace

CursorHider::CursorHider(RunLoop& mainLoop, Workspace& workspace) : mainLoop_(mainLoop) {
  qApp->installEventFilter(this);
  wakeSubscription_ = workspace.onWake([this] {
    if (enableCursorHiding_) scheduleTimer();
  });
}

CursorHider::~CursorHider() {
  showCursor();
}

void CursorHider::setEnableCursorHiding(CursorHiding hiding) {
  enableCursorHiding_ = hiding == CursorHiding::on;
  idleTimer_.reset();
  if (enableCursorHiding_) {
    scheduleTimer();
  } else {
    showCursor();
  }
}

bool CursorHider::eventFilter(QObject* watched, QEvent* event) {
  if (enableCursorHiding_ && isActivity(*event)) {
    if (event->type() == QEvent::MouseMove)
      noteMove(static_cast<const QMouseEvent&>(*event).globalPosition());
    noteActivity();
  }
  return QObject::eventFilter(watched, event);
}

void CursorHider::noteActivity() {
  if (!idleTimer_) {
    scheduleTimer();
  } else if (idleTimer_->secondsUntilFire() < kFreshSeconds) {
    idleTimer_->fireAfter(kIdleSeconds);
  }
}

void CursorHider::noteMove(const QPointF& position) {
  // The toolkit sends moves of its own when a view comes under a mouse that stands still. Their places have
  // fractions of a pixel where a logical pixel is several of the screen's, and the place noted has none.
  const QPointF way = position - position_;
  if (std::abs(way.x()) >= 1.0 || std::abs(way.y()) >= 1.0) showCursor();
}

void CursorHider::scheduleTimer() {
  idleTimer_ = mainLoop_.after(kIdleSeconds, [this] { idle(); });
}

void CursorHider::idle() {
  idleTimer_.reset();
  if (isHidden_) return;
  isHidden_ = true;
  position_ = QCursor::pos();
  QGuiApplication::setOverrideCursor(Qt::BlankCursor);
}

void CursorHider::showCursor() {
  if (!isHidden_) return;
  isHidden_ = false;
  QGuiApplication::restoreOverrideCursor();
}

}  // namespace tarvel
