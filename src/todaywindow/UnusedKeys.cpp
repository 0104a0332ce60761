#include "todaywindow/UnusedKeys.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarvel {

UnusedKeys::UnusedKeys(QWidget& window, SoundPlayer& sounds) : sounds_(sounds) {
  window.installEventFilter(this);
}

bool UnusedKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (!key.text().isEmpty() && key.text().front().isPrint() && !command) sounds_.playSound(kTinkSound);
  return false;
}

}  // namespace tarvel
