#pragma once
#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;

namespace tarvel {

class Window;

/// Tells a view whether the window it stands in is the main one, and when that changes. Owned by the view.
class MainStateWatch : public QObject {
  Q_OBJECT
 public:
  /// `changed` is called with the new state. It is heard for the first time when the view is shown in its
  /// window.
  MainStateWatch(QWidget& view, std::function<void(bool isMain)> changed);
  bool isMain() const { return isMain_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void attach();
  void update();

  QWidget& view_;
  std::function<void(bool)> changed_;
  QPointer<Window> window_;
  bool isMain_ = false;
};

}  // namespace tarvel
