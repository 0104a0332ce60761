#include "ui/AccessibleNode.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tarvel {
namespace {

using Nodes = std::vector<AccessibleNode>;

bool isColumn(const AccessibleNode& node) {
  return node.role == QAccessible::Row;
}

QString nearestIn(const AccessibleNode& column, double y) {
  const auto away = [y](const AccessibleNode& node) { return std::abs(node.rect.center().y() - y); };
  const auto nearest =
      std::min_element(column.children.begin(), column.children.end(),
                       [&](const auto& one, const auto& other) { return away(one) < away(other); });
  return nearest == column.children.end() ? column.id : nearest->id;
}

/// The index of the part of that id, and what is to be added to it for the way back or on.
QString besides(const Nodes& nodes, const QString& id, std::ptrdiff_t by) {
  const auto found =
      std::find_if(nodes.begin(), nodes.end(), [&](const AccessibleNode& node) { return node.id == id; });
  const std::ptrdiff_t index = found - nodes.begin() + by;
  const auto count = static_cast<std::ptrdiff_t>(nodes.size());
  if (found == nodes.end() || index < 0 || index >= count) return {};
  return nodes[static_cast<std::size_t>(index)].id;
}

}  // namespace

const AccessibleNode* findNode(const AccessibleNode& tree, const QString& id) {
  for (const AccessibleNode& child : tree.children) {
    if (child.id == id) return &child;
    if (const AccessibleNode* below = findNode(child, id)) return below;
  }
  return nullptr;
}

QString neighbourOf(const AccessibleNode& tree, const QString& id, FocusStep step) {
  const bool vertical = step == FocusStep::up || step == FocusStep::down;
  const std::ptrdiff_t by = step == FocusStep::up || step == FocusStep::left ? -1 : 1;
  if (tree.children.empty()) return {};
  if (!isColumn(tree.children.front())) return vertical ? besides(tree.children, id, by) : QString();
  for (const AccessibleNode& column : tree.children) {
    const AccessibleNode* from = column.id == id ? &column : findNode(column, id);
    if (!from) continue;
    if (vertical) return besides(column.children, id, by);
    const QString next = besides(tree.children, column.id, by);
    const AccessibleNode* nextColumn = next.isEmpty() ? nullptr : findNode(tree, next);
    return nextColumn ? nearestIn(*nextColumn, from->rect.center().y()) : QString();
  }
  return {};
}

QString endOf(const AccessibleNode& tree, FocusEnd end) {
  if (tree.children.empty()) return {};
  const AccessibleNode& node = end == FocusEnd::first ? tree.children.front() : tree.children.back();
  return node.children.empty() ? node.id : node.children.front().id;
}

}  // namespace tarvel
