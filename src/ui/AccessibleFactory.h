#pragma once
#include <QAccessible>

class QWidget;

namespace tarvel {

/// From here on screen readers are told of the application's own kinds of widgets: views of named parts,
/// buttons that are switched on and off, and those whose role was set below. Once is enough.
void installAccessibleFactory();

/// What a widget that paints itself is: a text, a picture, a group. To be called before anyone asks, which is
/// while it is made, and before it is named.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace tarvel
