#pragma once
#include <QObject>
#include <functional>

#include "platform/SoundPlayer.h"

class QWidget;

namespace tarvel {

/// The keys of a main window that nothing in it has taken: the arrows to the left and right, Escape, and for
/// any other that types a character, Return and Backspace among them, the sound of a key that means nothing
/// here. Main thread.
class WindowKeys : public QObject {
  Q_OBJECT
 public:
  /// Listens to the window for as long as it lives. Both outlive it.
  WindowKeys(QWidget& window, SoundPlayer& sounds);

  // Each is called for its key, and does nothing where the key has no meaning; none may be empty.
  std::function<void()> left;
  std::function<void()> right;
  std::function<void()> escape;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  SoundPlayer& sounds_;
};

}  // namespace tarvel
