#include "ui/AccessibleFactory.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QVariant>

#include "ui/AccessibleToggle.h"
#include "ui/AccessibleView.h"
#include "ui/AccessibleViewInterface.h"

namespace tarvel {
namespace {

constexpr const char* kRoleProperty = "accessibleRole";

QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget) return nullptr;
  if (auto* view = dynamic_cast<AccessibleView*>(widget)) return new AccessibleViewInterface(*widget, *view);
  auto* button = qobject_cast<QAbstractButton*>(widget);
  if (button && button->isCheckable()) return new AccessibleToggle(*button);
  const QVariant role = widget->property(kRoleProperty);
  if (role.isValid()) return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
  return nullptr;
}

}  // namespace

void installAccessibleFactory() {
  static const bool isInstalled = [] {
    QAccessible::installFactory(interfaceFor);
    return true;
  }();
  Q_UNUSED(isInstalled);
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
  installAccessibleFactory();
  widget.setProperty(kRoleProperty, static_cast<int>(role));
}

}  // namespace tarvel
