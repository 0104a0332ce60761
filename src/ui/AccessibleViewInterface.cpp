#include "ui/AccessibleViewInterface.h"

#include <QWidget>
#include <algorithm>
#include <utility>

#include "ui/AccessibleNodeInterface.h"
#include "ui/AccessibleView.h"

namespace tarvel {
namespace {

void tell(QAccessibleInterface* part, QAccessible::Event kind) {
  if (!part) return;
  QAccessibleEvent event(part, kind);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

AccessibleViewInterface::AccessibleViewInterface(QWidget& widget, AccessibleView& view)
    : QAccessibleWidget(&widget), view_(&view) {
  view.interface_ = this;
}

AccessibleViewInterface::~AccessibleViewInterface() {
  if (view_) view_->interface_ = nullptr;
  for (const QAccessible::Id id : std::as_const(interfaces_)) QAccessible::deleteAccessibleInterface(id);
}

void AccessibleViewInterface::viewIsGone() {
  view_ = nullptr;
  forgetTree();
}

bool AccessibleViewInterface::isValid() const {
  return view_ && QAccessibleWidget::isValid();
}

// The tree.

void AccessibleViewInterface::forgetTree() {
  tree_.reset();
  places_.clear();
}

const AccessibleNode& AccessibleViewInterface::tree() {
  if (tree_) return *tree_;
  tree_ = view_ ? view_->accessibleTree() : AccessibleNode{};
  indexChildren(*tree_, QString());
  if (!isAsked_) told_ = {places_.keyBegin(), places_.keyEnd()};
  isAsked_ = true;
  QMetaObject::invokeMethod(
      &turns_, [this] { forgetTree(); }, Qt::QueuedConnection);
  return *tree_;
}

void AccessibleViewInterface::indexChildren(const AccessibleNode& node, const QString& id) {
  int index = 0;
  for (const AccessibleNode& child : node.children) {
    places_.insert(child.id, {&child, id, index++});
    indexChildren(child, child.id);
  }
}

std::optional<AccessibleViewInterface::Place> AccessibleViewInterface::placeOf(const QString& id) {
  tree();
  const auto found = places_.constFind(id);
  return found == places_.constEnd() ? std::nullopt : std::optional<Place>(*found);
}

QAccessibleInterface* AccessibleViewInterface::interfaceOf(const QString& id) {
  if (id.isEmpty()) return this;
  if (const auto known = interfaces_.constFind(id); known != interfaces_.constEnd())
    return QAccessible::accessibleInterface(*known);
  const auto place = placeOf(id);
  if (!place) return nullptr;
  auto* made = new AccessibleNodeInterface(*this, id, place->parent);
  made->toldName = place->node->name;
  interfaces_.insert(id, QAccessible::registerAccessibleInterface(made));
  return made;
}

bool AccessibleViewInterface::hasFocus(const QString& id) const {
  return isValid() && widget()->hasFocus() && view_->accessibleFocus() == id;
}

bool AccessibleViewInterface::isInSight() const {
  return isValid() && !widget()->visibleRegion().isEmpty();
}

// Notices.

void AccessibleViewInterface::contentChanged() {
  forgetTree();
  // A notice is told of before anyone has asked.
  if (isTelling_ || !(isAsked_ || QAccessible::isActive())) return;
  isTelling_ = true;
  QMetaObject::invokeMethod(
      &turns_, [this] { tellChanges(); }, Qt::QueuedConnection);
}

void AccessibleViewInterface::tellChanges() {
  isTelling_ = false;
  forgetTree();
  tree();
  const QList<QString> known = interfaces_.keys();
  for (const QString& id : known) {
    const auto place = placeOf(id);
    if (!place) {
      removeInterface(id);
      continue;
    }
    auto* part = static_cast<AccessibleNodeInterface*>(interfaceOf(id));
    if (!part || part->toldName == place->node->name) continue;
    part->toldName = place->node->name;
    tell(part, QAccessible::NameChanged);
  }
  tellAdded();
  tellNotices();
}

void AccessibleViewInterface::tellAdded() {
  QSet<QString> present{places_.keyBegin(), places_.keyEnd()};
  if (QAccessible::isActive()) {
    for (auto place = places_.cbegin(); place != places_.cend(); ++place) {
      const QString parent = place->parent;
      // Whoever is told of a part looks for those in it.
      const bool isNew = !told_.contains(place.key()) && (parent.isEmpty() || told_.contains(parent));
      if (isNew) tell(interfaceOf(place.key()), QAccessible::ObjectCreated);
    }
  }
  told_ = std::move(present);
}

void AccessibleViewInterface::tellNotices() {
  if (!QAccessible::isActive()) return;
  QSet<QString> notices;
  for (auto place = places_.cbegin(); place != places_.cend(); ++place) {
    if (place->node->role == QAccessible::Notification) notices.insert(place.key());
  }
  const QSet<QString> before = std::exchange(toldNotices_, notices);
  for (const QString& id : notices - before) {
    // Readers say what begins to show as a notification; others wait for the alert.
    tell(interfaceOf(id), QAccessible::ObjectShow);
    tell(interfaceOf(id), QAccessible::Alert);
  }
}

void AccessibleViewInterface::removeInterface(const QString& id) {
  const QAccessible::Id toolkitId = interfaces_.value(id);
  const auto* part = static_cast<AccessibleNodeInterface*>(QAccessible::accessibleInterface(toolkitId));
  // Whoever is told that a part has gone forgets those in it.
  if (part && (part->parentId().isEmpty() || placeOf(part->parentId())))
    tell(QAccessible::accessibleInterface(toolkitId), QAccessible::ObjectDestroyed);
  interfaces_.remove(id);
  QAccessible::deleteAccessibleInterface(toolkitId);
}

void AccessibleViewInterface::focusChanged() {
  forgetTree();
  if (!QAccessible::isActive()) return;
  // The toolkit tells of the view's own focus after the view has heard of it.
  QMetaObject::invokeMethod(
      &turns_, [this] { tellFocus(); }, Qt::QueuedConnection);
}

void AccessibleViewInterface::tellFocus() {
  if (!isValid() || !widget()->hasFocus()) return;
  const QString id = view_->accessibleFocus();
  if (!id.isEmpty()) tell(interfaceOf(id), QAccessible::Focus);
}

void AccessibleViewInterface::selectionChanged() {
  forgetTree();
  if (!QAccessible::isActive() || !isValid()) return;
  tree();
  QSet<QString> selected;
  for (auto place = places_.cbegin(); place != places_.cend(); ++place) {
    if (place->node->selected) selected.insert(place.key());
  }
  const QSet<QString> before = std::exchange(selected_, selected);
  for (const QString& id : before - selected) tell(interfaceOf(id), QAccessible::SelectionRemove);
  for (const QString& id : selected - before) tell(interfaceOf(id), QAccessible::SelectionAdd);
  if (before != selected) tell(this, QAccessible::SelectionWithin);
}

// The view as a whole.

QAccessible::Role AccessibleViewInterface::role() const {
  return self().tree().role;
}

QAccessible::State AccessibleViewInterface::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  // A page that waits beside the one in view counts as shown to the toolkit.
  if (!isInSight()) state.invisible = true;
  return state;
}

int AccessibleViewInterface::childCount() const {
  if (!isValid()) return 0;
  return static_cast<int>(self().tree().children.size()) + QAccessibleWidget::childCount();
}

QAccessibleInterface* AccessibleViewInterface::child(int index) const {
  if (!isValid() || index < 0) return nullptr;
  const auto& parts = self().tree().children;
  const int count = static_cast<int>(parts.size());
  if (index >= count) return QAccessibleWidget::child(index - count);
  return self().interfaceOf(parts[static_cast<std::size_t>(index)].id);
}

int AccessibleViewInterface::indexOfChild(const QAccessibleInterface* child) const {
  if (!isValid()) return -1;
  if (const auto* part = dynamic_cast<const AccessibleNodeInterface*>(child)) {
    const auto place = self().placeOf(part->id());
    return place && place->parent.isEmpty() ? place->index : -1;
  }
  const int index = QAccessibleWidget::indexOfChild(child);
  return index < 0 ? index : index + static_cast<int>(self().tree().children.size());
}

QAccessibleInterface* AccessibleViewInterface::focusChild() const {
  if (!isValid()) return nullptr;
  const QString id = widget()->hasFocus() ? view_->accessibleFocus() : QString();
  QAccessibleInterface* part = id.isEmpty() ? nullptr : self().interfaceOf(id);
  return part ? part : QAccessibleWidget::focusChild();
}

void* AccessibleViewInterface::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface)
    return role() == QAccessible::Table ? static_cast<QAccessibleTableInterface*>(this) : nullptr;
  return QAccessibleWidget::interface_cast(type);
}

// The table.

const AccessibleNode* AccessibleViewInterface::row(int index) const {
  const auto& rows = self().tree().children;
  return index < 0 || index >= static_cast<int>(rows.size()) ? nullptr
                                                             : &rows[static_cast<std::size_t>(index)];
}

QAccessibleInterface* AccessibleViewInterface::cellAt(int row, int column) const {
  const AccessibleNode* line = this->row(row);
  if (!line || column < 0 || column >= static_cast<int>(line->children.size())) return nullptr;
  return self().interfaceOf(line->children[static_cast<std::size_t>(column)].id);
}

QList<QAccessibleInterface*> AccessibleViewInterface::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const AccessibleNode& line : self().tree().children) {
    for (const AccessibleNode& cell : line.children) {
      if (cell.selected) cells.push_back(self().interfaceOf(cell.id));
    }
  }
  return cells;
}

int AccessibleViewInterface::selectedCellCount() const {
  return static_cast<int>(selectedCells().size());
}

QString AccessibleViewInterface::rowDescription(int row) const {
  const AccessibleNode* line = this->row(row);
  return line ? line->name : QString();
}

int AccessibleViewInterface::rowCount() const {
  return static_cast<int>(self().tree().children.size());
}

int AccessibleViewInterface::columnCount() const {
  std::size_t most = 0;
  for (const AccessibleNode& line : self().tree().children) most = std::max(most, line.children.size());
  return static_cast<int>(most);
}

QList<int> AccessibleViewInterface::selectedRows() const {
  QList<int> rows;
  for (int index = 0; index < rowCount(); ++index) {
    if (isRowSelected(index)) rows.push_back(index);
  }
  return rows;
}

int AccessibleViewInterface::selectedRowCount() const {
  return static_cast<int>(selectedRows().size());
}

bool AccessibleViewInterface::isRowSelected(int row) const {
  const AccessibleNode* line = this->row(row);
  return line && line->selected;
}

}  // namespace tarvel
