#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QWidget>
#include <memory>
#include <tuple>

#include "ui/AccessibleView.h"

namespace tarvel {
namespace {

AccessibleNode part(const QString& id, QAccessible::Role role, const QRectF& rect) {
  AccessibleNode node;
  node.id = id;
  node.role = role;
  node.name = "name of " + id;
  node.rect = rect;
  node.focusable = true;
  node.action = "Open";
  return node;
}

/// Two columns beside each other, of two cells and of one, and a column without any.
AccessibleNode threeColumns() {
  AccessibleNode table;
  table.role = QAccessible::Table;
  AccessibleNode one = part("one", QAccessible::Row, {0, 0, 40, 90});
  one.children = {part("a", QAccessible::Cell, {0, 0, 40, 20}),
                  part("b", QAccessible::Cell, {0, 50, 40, 20})};
  AccessibleNode two = part("two", QAccessible::Row, {40, 0, 40, 90});
  two.children = {part("c", QAccessible::Cell, {40, 60, 40, 20})};
  two.children[0].selectable = true;
  table.children = {one, two, part("three", QAccessible::Row, {80, 0, 40, 90})};
  return table;
}

class Shelf : public QWidget, public AccessibleView {
 public:
  explicit Shelf(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }
  AccessibleNode accessibleTree() const override {
    ++asked;
    return shown;
  }
  QString accessibleFocus() const override { return focused; }
  void pressAccessible(const QString& id) override { pressed += id; }
  void focusAccessible(const QString& id) override {
    focused = id;
    accessibleFocusChanged();
  }
  using AccessibleView::accessibleContentChanged;
  using AccessibleView::accessibleSelectionChanged;

  AccessibleNode shown = threeColumns();
  QString focused;
  QString pressed;
  mutable int asked = 0;
};

class AccessibleTreeTest : public testing::Test {
 protected:
  AccessibleTreeTest() {
    window.resize(200, 120);
    shelf->resize(120, 90);
    window.show();
    QApplication::setActiveWindow(&window);
    QApplication::processEvents();
  }
  QAccessibleInterface* root() { return QAccessible::queryAccessibleInterface(shelf); }

  QWidget window;
  Shelf* shelf = new Shelf(&window);
};

TEST_F(AccessibleTreeTest, aViewIsATableOfItsParts) {
  shelf->setAccessibleName("Shelf");
  QAccessibleInterface* table = root();
  EXPECT_EQ(table->role(), QAccessible::Table);
  EXPECT_EQ(table->text(QAccessible::Name), "Shelf");
  ASSERT_EQ(table->childCount(), 3);
  QAccessibleInterface* cell = table->child(0)->child(1);
  EXPECT_EQ(cell->text(QAccessible::Name), "name of b");
  EXPECT_EQ(cell->rect(), QRect(shelf->mapToGlobal(QPoint(0, 50)), QSize(40, 20)));
  EXPECT_EQ(cell->parent(), table->child(0));
  EXPECT_EQ(cell->parent()->indexOfChild(cell), 1);
  EXPECT_EQ(cell->parent()->parent(), table);
  EXPECT_EQ(table->indexOfChild(cell->parent()), 0);
  const QPoint middle = cell->rect().center();
  EXPECT_EQ(table->childAt(middle.x(), middle.y())->childAt(middle.x(), middle.y()), cell);
  EXPECT_FALSE(cell->state().offscreen);
  ASSERT_NE(table->tableInterface(), nullptr);
  EXPECT_EQ(table->tableInterface()->cellAt(0, 1), cell);
  EXPECT_EQ(table->tableInterface()->cellAt(1, 1), nullptr);
  EXPECT_EQ(table->tableInterface()->rowDescription(2), "name of three");
  EXPECT_EQ(table->tableInterface()->columnCount(), 2);
  ASSERT_NE(cell->tableCellInterface(), nullptr);
  EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 1);
  EXPECT_EQ(cell->tableCellInterface()->table(), table);
  cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(shelf->pressed, "b");
  cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(cell->state().focused);
  EXPECT_EQ(table->focusChild(), cell);
}

TEST_F(AccessibleTreeTest, aPartMayBeAskedAfterItOrItsViewHasGone) {
  QAccessibleInterface* cell = root()->child(0)->child(1);
  const QAccessible::Id id = QAccessible::uniqueId(cell);
  shelf->shown.children[0].children.pop_back();
  shelf->accessibleContentChanged();
  EXPECT_EQ(cell->text(QAccessible::Name), "");
  EXPECT_TRUE(cell->state().invalid);
  EXPECT_EQ(cell->parent(), root()->child(0));
  EXPECT_EQ(cell->childCount(), 0);
  cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(shelf->pressed, "");
  QApplication::processEvents();
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
  const QAccessible::Id other = QAccessible::uniqueId(root()->child(1));
  shelf->accessibleContentChanged();
  delete shelf;
  EXPECT_EQ(QAccessible::accessibleInterface(other), nullptr);
  QApplication::processEvents();
}

TEST_F(AccessibleTreeTest, nothingIsMadeWhileNobodyAsks) {
  const auto change = [this] {
    shelf->accessibleContentChanged();
    shelf->accessibleSelectionChanged();
    shelf->focusAccessible("a");
    QApplication::processEvents();
  };
  change();
  EXPECT_EQ(shelf->asked, 0);
  root()->child(0)->child(0)->text(QAccessible::Name);
  root()->child(1)->rect();
  EXPECT_EQ(shelf->asked, 1) << "one tree serves for a turn of the loop";
  QApplication::processEvents();
  root()->child(0)->text(QAccessible::Name);
  EXPECT_EQ(shelf->asked, 2);
}

TEST(AccessibleNodeTest, stepsLeadToTheNeighbour) {
  const AccessibleNode columns = threeColumns();
  AccessibleNode list;
  for (const char* id : {"x", "y"}) list.children.push_back(part(id, QAccessible::ListItem, {}));
  using enum FocusStep;
  const std::tuple<const AccessibleNode*, const char*, FocusStep, const char*> cases[] = {
      {&columns, "a", down, "b"},     {&columns, "b", down, ""},  {&columns, "b", up, "a"},
      {&columns, "a", right, "c"},    {&columns, "c", left, "b"}, {&columns, "c", right, "three"},
      {&columns, "three", left, "c"}, {&columns, "a", left, ""},  {&columns, "three", right, ""},
      {&columns, "three", down, ""},  {&columns, "?", down, ""},  {&list, "x", down, "y"},
      {&list, "y", down, ""},         {&list, "y", up, "x"},      {&list, "x", right, ""}};
  for (const auto& [tree, from, step, to] : cases) {
    EXPECT_EQ(neighbourOf(*tree, from, step), to) << from << " " << static_cast<int>(step);
  }
  EXPECT_EQ(endOf(columns, FocusEnd::first), "a");
  EXPECT_EQ(endOf(columns, FocusEnd::last), "three");
  EXPECT_EQ(endOf({}, FocusEnd::last), "");
}

}  // namespace
}  // namespace tarvel
