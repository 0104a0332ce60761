#pragma once
#include <QAccessible>

namespace tarvel {

class AccessibleViewInterface;
struct AccessibleNode;

/// One part of a view as the toolkit's accessibility knows it. It holds no more than the part's id and looks
/// up the rest in the view's tree, so that it may be asked at any time; of a part that has gone it says
/// nothing. Made by the view's interface, and destroyed before it.
class AccessibleNodeInterface : public QAccessibleInterface,
                                public QAccessibleActionInterface,
                                public QAccessibleTableCellInterface {
 public:
  AccessibleNodeInterface(AccessibleViewInterface& owner, QString id, QString parent);

  const QString& id() const { return id_; }
  /// Empty for the view.
  const QString& parentId() const { return parent_; }
  /// The name that listeners were told last.
  QString toldName;

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  /// On the screen.
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  QString localizedActionDescription(const QString& name) const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  // Of a cell of a table:
  bool isSelected() const override;
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override;
  int rowIndex() const override;
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override;

 private:
  const AccessibleNode* node() const;

  AccessibleViewInterface& owner_;
  QString id_;
  QString parent_;  ///< the id of the part around it, also when this one has gone; empty for the view
};

}  // namespace tarvel
