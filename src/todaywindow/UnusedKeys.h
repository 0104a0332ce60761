#pragma once
#include <QObject>

#include "platform/SoundPlayer.h"

class QWidget;

namespace tarvel {

/// Plays the sound of a key that means nothing here for the keys that nothing in a window has taken: those
/// that type, that move a caret, and the function keys. Modifiers by themselves, combinations that are
/// commands, and the keys that move the focus stay silent. Main thread.
class UnusedKeys : public QObject {
  Q_OBJECT
 public:
  /// Listens to the window for as long as it lives. Both outlive it.
  UnusedKeys(QWidget& window, SoundPlayer& sounds);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  SoundPlayer& sounds_;
};

}  // namespace tarvel
