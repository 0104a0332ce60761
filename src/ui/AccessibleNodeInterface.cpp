#include "ui/AccessibleNodeInterface.h"

#include <QWidget>
#include <utility>

#include "ui/AccessibleView.h"
#include "ui/AccessibleViewInterface.h"

namespace tarvel {

AccessibleNodeInterface::AccessibleNodeInterface(AccessibleViewInterface& owner, QString id, QString parent)
    : owner_(owner), id_(std::move(id)), parent_(std::move(parent)) {}

const AccessibleNode* AccessibleNodeInterface::node() const {
  const auto place = owner_.placeOf(id_);
  return place ? place->node : nullptr;
}

bool AccessibleNodeInterface::isValid() const {
  // A part that has gone counts until its going has been told.
  return owner_.isValid();
}

QWindow* AccessibleNodeInterface::window() const {
  return owner_.isValid() ? owner_.window() : nullptr;
}

QAccessibleInterface* AccessibleNodeInterface::parent() const {
  return owner_.interfaceOf(parent_);
}

QAccessibleInterface* AccessibleNodeInterface::child(int index) const {
  const AccessibleNode* part = node();
  if (!part || index < 0 || index >= childCount()) return nullptr;
  return owner_.interfaceOf(part->children[static_cast<std::size_t>(index)].id);
}

QAccessibleInterface* AccessibleNodeInterface::childAt(int x, int y) const {
  for (int index = 0; index < childCount(); ++index) {
    QAccessibleInterface* part = child(index);
    if (part && part->rect().contains(x, y)) return part;
  }
  return nullptr;
}

int AccessibleNodeInterface::childCount() const {
  const AccessibleNode* part = node();
  return part ? static_cast<int>(part->children.size()) : 0;
}

int AccessibleNodeInterface::indexOfChild(const QAccessibleInterface* child) const {
  const auto* part = dynamic_cast<const AccessibleNodeInterface*>(child);
  const auto place = part && &part->owner_ == &owner_ ? owner_.placeOf(part->id_) : std::nullopt;
  return place && place->parent == id_ ? place->index : -1;
}

QString AccessibleNodeInterface::text(QAccessible::Text kind) const {
  const AccessibleNode* part = node();
  if (!part) return {};
  switch (kind) {
    case QAccessible::Name:
      return part->name;
    case QAccessible::Description:
      return part->description;
    default:
      return {};
  }
}

QRect AccessibleNodeInterface::rect() const {
  const AccessibleNode* part = node();
  const QWidget* widget = part && owner_.isValid() ? qobject_cast<QWidget*>(owner_.object()) : nullptr;
  if (!widget) return {};
  const QRect rect = part->rect.toAlignedRect();
  return {widget->mapToGlobal(rect.topLeft()), rect.size()};
}

QAccessible::Role AccessibleNodeInterface::role() const {
  const AccessibleNode* part = node();
  return part ? part->role : QAccessible::NoRole;
}

QAccessible::State AccessibleNodeInterface::state() const {
  QAccessible::State state;
  const AccessibleNode* part = node();
  const QWidget* widget = part && owner_.isValid() ? qobject_cast<QWidget*>(owner_.object()) : nullptr;
  if (!widget) {
    state.invalid = true;
    return state;
  }
  state.disabled = !widget->isEnabled();
  state.invisible = !owner_.isInSight();
  state.offscreen = !widget->visibleRegion().intersects(part->rect.toAlignedRect());
  state.focusable = part->focusable;
  state.focused = part->focusable && owner_.hasFocus(id_);
  state.selectable = part->selectable;
  state.selected = part->selected;
  state.readOnly = true;
  return state;
}

void* AccessibleNodeInterface::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
  if (type == QAccessible::TableCellInterface && table())
    return static_cast<QAccessibleTableCellInterface*>(this);
  return nullptr;
}

QStringList AccessibleNodeInterface::actionNames() const {
  const AccessibleNode* part = node();
  QStringList names;
  if (part && !part->action.isEmpty()) names.push_back(pressAction());
  if (part && part->focusable) names.push_back(setFocusAction());
  return names;
}

QString AccessibleNodeInterface::localizedActionDescription(const QString& name) const {
  const AccessibleNode* part = node();
  if (part && name == pressAction()) return part->action;
  return QAccessibleActionInterface::localizedActionDescription(name);
}

void AccessibleNodeInterface::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  // The view may well destroy this object meanwhile, by closing its window.
  AccessibleView* view = owner_.view();
  const QString id = id_;
  if (name == pressAction()) return view->pressAccessible(id);
  if (auto* widget = qobject_cast<QWidget*>(owner_.object())) {
    // A view that has the keyboard already isn't told of it again.
    widget->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    widget->setFocus(Qt::ShortcutFocusReason);
  }
  view->focusAccessible(id);
}

bool AccessibleNodeInterface::isSelected() const {
  const AccessibleNode* part = node();
  return part && part->selected;
}

int AccessibleNodeInterface::columnIndex() const {
  const auto place = owner_.placeOf(id_);
  return place ? place->index : -1;
}

int AccessibleNodeInterface::rowIndex() const {
  const auto row = owner_.placeOf(parent_);
  return row ? row->index : -1;
}

QAccessibleInterface* AccessibleNodeInterface::table() const {
  const auto row = parent_.isEmpty() ? std::nullopt : owner_.placeOf(parent_);
  const bool isCell = row && row->parent.isEmpty() && owner_.role() == QAccessible::Table;
  return isCell ? &owner_ : nullptr;
}

}  // namespace tarvel
