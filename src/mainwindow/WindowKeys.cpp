#include "mainwindow/WindowKeys.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarvel {

WindowKeys::WindowKeys(QWidget& window, SoundPlayer& sounds) : sounds_(sounds) {
  window.installEventFilter(this);
}

bool WindowKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  switch (key.key()) {
    case Qt::Key_Left:
      left();
      return true;
    case Qt::Key_Right:
      right();
      return true;
    case Qt::Key_Escape:
      escape();
      return true;
    default:
      break;
  }
  const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (!key.text().isEmpty() && !command) sounds_.playSound(kTinkSound);
  return false;
}

}  // namespace tarvel
