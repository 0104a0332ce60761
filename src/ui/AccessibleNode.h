#pragma once
#include <QAccessible>
#include <QRectF>
#include <QString>
#include <vector>

namespace tarvel {

/// A part of what a view draws, as a screen reader is told of it: a session, a day, a row, a picture. A plain
/// value, made anew whenever someone asks.
struct AccessibleNode {
  /// Names the part among all those of its view, and goes on naming it while the view shows it.
  QString id;
  QAccessible::Role role = QAccessible::ListItem;
  QString name;
  QString description;  ///< what there is to say beyond the name
  QRectF rect;          ///< in the view's coordinates
  bool focusable = false;
  bool selectable = false;
  bool selected = false;
  /// What pressing it does, in a few words; empty for a part that can't be pressed.
  QString action;
  std::vector<AccessibleNode> children;
};

/// The part of that id below `tree`; null if there is none.
const AccessibleNode* findNode(const AccessibleNode& tree, const QString& id);

/// Where an arrow key leads.
enum class FocusStep { up, down, left, right };

/// The id of the part to go to from that of `id`; empty if there is none that way. The tree is a list, whose
/// parts follow one another from the top down, or it consists of columns, which hold their parts. From column
/// to column the way leads to the part at about the same height, or to the column as a whole if it is empty.
QString neighbourOf(const AccessibleNode& tree, const QString& id, FocusStep step);
/// The part to begin with: the first of the first column or, coming from behind, of the last; of a list the
/// first or last. Empty for a tree without parts.
enum class FocusEnd { first, last };
QString endOf(const AccessibleNode& tree, FocusEnd end);

}  // namespace tarvel
