#include "ui/AccessibleToggle.h"

#include <QAbstractButton>
#include <QRadioButton>
#include <QTextDocumentFragment>

namespace tarvel {
namespace {

QAccessible::Role roleOf(const QAbstractButton& button) {
  return qobject_cast<const QRadioButton*>(&button) ? QAccessible::RadioButton : QAccessible::CheckBox;
}

/// Without the mark of the key that goes to it.
QString withoutMnemonic(QString text) {
  text.replace(QStringLiteral("&&"), QString(QChar::Null));
  text.remove(u'&');
  return text.replace(QChar::Null, u'&');
}

}  // namespace

AccessibleToggle::AccessibleToggle(QAbstractButton& button) : QAccessibleWidget(&button, roleOf(button)) {}

QAbstractButton* AccessibleToggle::button() const {
  return static_cast<QAbstractButton*>(widget());
}

QString AccessibleToggle::text(QAccessible::Text kind) const {
  const QString set = QAccessibleWidget::text(kind);
  if (kind == QAccessible::Name) return set.isEmpty() ? withoutMnemonic(button()->text()) : set;
  if (kind != QAccessible::Description || !Qt::mightBeRichText(set)) return set;
  // A tip's markup isn't for reading aloud, nor the name a second time.
  const QString plain = QTextDocumentFragment::fromHtml(set).toPlainText();
  return plain == text(QAccessible::Name) ? QString() : plain;
}

QAccessible::State AccessibleToggle::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.checkable = true;
  state.checked = button()->isChecked();
  state.pressed = button()->isDown();
  return state;
}

QStringList AccessibleToggle::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (button()->isEnabled()) names.prepend(toggleAction());
  return names;
}

void AccessibleToggle::doAction(const QString& name) {
  if (name != toggleAction()) return QAccessibleWidget::doAction(name);
  // The click may well be the end of the button, and so of this object.
  QMetaObject::invokeMethod(button(), &QAbstractButton::click, Qt::QueuedConnection);
}

}  // namespace tarvel
