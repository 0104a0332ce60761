#include "schedule/MainStateWatch.h"

#include <QEvent>

#include "ui/Window.h"

namespace tarvel {

MainStateWatch::MainStateWatch(QWidget& view, std::function<void(bool)> changed)
    : view_(view), changed_(std::move(changed)) {
  view.installEventFilter(this);
}

bool MainStateWatch::eventFilter(QObject* watched, QEvent* event) {
  // A view learns its window only when it is put into it, which may be long after it was made.
  if (watched == &view_ && event->type() == QEvent::Show) attach();
  return QObject::eventFilter(watched, event);
}

void MainStateWatch::attach() {
  auto* window = qobject_cast<Window*>(view_.window());
  if (window != window_) {
    if (window_) disconnect(window_, nullptr, this, nullptr);
    window_ = window;
    if (window) {
      connect(window, &Window::becameMain, this, &MainStateWatch::update);
      connect(window, &Window::resignedMain, this, &MainStateWatch::update);
    }
  }
  update();
}

void MainStateWatch::update() {
  const bool isMain = window_ && window_->isMain();
  if (isMain == isMain_) return;
  isMain_ = isMain;
  changed_(isMain);
}

}  // namespace tarvel
