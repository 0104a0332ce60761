#pragma once
#include <QAccessibleWidget>
#include <QHash>
#include <QObject>
#include <QSet>
#include <optional>

#include "ui/AccessibleNode.h"

namespace tarvel {

class AccessibleNodeInterface;
class AccessibleView;

/// A view of named parts as the toolkit's accessibility knows it. The toolkit makes one when a view is first
/// asked about, and destroys it with the widget. The tree of parts is kept for one turn of the main loop, in
/// which a screen reader's question is answered, and made anew in the next. The parts' own interfaces are
/// made one by one as they are asked for, and go when the view has told that they are no longer there, though
/// never during a question.
class AccessibleViewInterface : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  AccessibleViewInterface(QWidget& widget, AccessibleView& view);
  ~AccessibleViewInterface() override;

  // From the view:
  void viewIsGone();
  void contentChanged();
  void focusChanged();
  void selectionChanged();

  // For the parts:
  struct Place {
    const AccessibleNode* node = nullptr;
    QString parent;  ///< empty for the view itself
    int index = 0;   ///< among its parent's children
  };
  /// None for a part that is no longer there. Valid until the control returns to the main loop.
  std::optional<Place> placeOf(const QString& id);
  const AccessibleNode& tree();
  /// The interface of a part that is there; for the empty id this one. Null for others.
  QAccessibleInterface* interfaceOf(const QString& id);
  /// Null after the view has gone.
  AccessibleView* view() const { return view_; }
  bool hasFocus(const QString& id) const;
  /// Whether any of the view can be seen.
  bool isInSight() const;

  bool isValid() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  // A table's rows are the root's children.
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int) const override { return {}; }
  QString rowDescription(int row) const override;
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override;
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

 private:
  AccessibleViewInterface& self() const { return const_cast<AccessibleViewInterface&>(*this); }
  void forgetTree();
  void indexChildren(const AccessibleNode& node, const QString& id);
  /// Tells of what has come, gone or changed its name since it told last.
  void tellChanges();
  void tellAdded();
  /// A notice is to be said whatever the listener is at.
  void tellNotices();
  void tellFocus();
  void removeInterface(const QString& id);
  const AccessibleNode* row(int index) const;

  AccessibleView* view_;
  QHash<QString, QAccessible::Id> interfaces_;  ///< of the parts, owned by way of the toolkit's table
  std::optional<AccessibleNode> tree_;
  QHash<QString, Place> places_;  ///< of the parts of the tree
  QSet<QString> told_;            ///< the parts that listeners have been told of
  QSet<QString> toldNotices_;     ///< those of them that have been said to be new
  QSet<QString> selected_;        ///< those of them that were selected
  bool isAsked_ = false;          ///< someone has seen the tree
  bool isTelling_ = false;        ///< a pass is due
  QObject turns_;                 ///< what is due in the next turn goes with it
};

}  // namespace tarvel
