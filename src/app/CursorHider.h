#pragma once
#include <QObject>
#include <QPointF>
#include <memory>

#include "auxwindows/ApplicationProtocol.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

namespace tarvel {

/// Hides the pointer when nobody has touched the machine for ten seconds, until the mouse moves. It watches
/// all events of the application. One in the process, made after the application object; main thread.
class CursorHider : public QObject {
  Q_OBJECT
 public:
  static constexpr double kIdleSeconds = 10.0;

  /// Both outlive it.
  CursorHider(RunLoop& mainLoop, Workspace& workspace);
  ~CursorHider() override;

  /// Off at the start. Each call begins the ten seconds anew, or shows the pointer again.
  void setEnableCursorHiding(CursorHiding hiding);
  bool isCursorHidden() const { return isHidden_; }
  /// 0 while no timer runs.
  double secondsUntilHiding() const { return idleTimer_ ? idleTimer_->secondsUntilFire() : 0.0; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void noteActivity();
  void noteMove(const QPointF& position);
  void scheduleTimer();
  void idle();
  void showCursor();

  RunLoop& mainLoop_;
  bool enableCursorHiding_ = false;
  std::unique_ptr<Timer> idleTimer_;
  bool isHidden_ = false;
  QPointF position_;  ///< of the pointer when it was hidden
  std::unique_ptr<Workspace::Subscription> wakeSubscription_;
};

}  // namespace tarvel
