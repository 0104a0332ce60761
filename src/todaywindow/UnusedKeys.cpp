#include "todaywindow/UnusedKeys.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarvel {
namespace {

bool isModifier(int key) {
  return key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
}

/// What is beyond the function keys serves the desktop: menus, volume, and the like.
bool meansNothing(const QKeyEvent& key) {
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) return false;
  if (!key.text().isEmpty()) return true;
  return key.key() >= Qt::Key_Escape && key.key() <= Qt::Key_F35 && !isModifier(key.key());
}

}  // namespace

UnusedKeys::UnusedKeys(QWidget& window, SoundPlayer& sounds) : sounds_(sounds) {
  window.installEventFilter(this);
}

bool UnusedKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  if (meansNothing(static_cast<const QKeyEvent&>(*event))) sounds_.playSound(kTinkSound);
  return false;
}

}  // namespace tarvel
