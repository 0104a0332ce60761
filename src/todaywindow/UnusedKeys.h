#pragma once
#include <QObject>

#include "platform/SoundPlayer.h"

class QWidget;

namespace tarvel {

/// Plays the sound of a key that means nothing here for the characters that nothing in a window has taken.
/// Main thread.
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
