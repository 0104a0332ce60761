#include "mainwindow/RinkListView.h"

#include <QScrollArea>
#include <QTest>
#include <tuple>

#include "schedule/ScheduleWorld.h"
#include "simulation/ports/NotificationRecorder.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr int kWidth = 240;
constexpr int kHeight = 500;

class RinkListViewTest : public test::ScheduleWorldTest {
 protected:
  RinkListViewTest() {
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->resize(kWidth, kHeight);
    scroller->setWidget(list);
    window.resize(kWidth, kHeight);
    list->enabled = true;
    window.makeKeyAndOrderFront();
    settle();
  }
  ~RinkListViewTest() override { list->close(); }

  void addRinks(int count) {
    for (int id = 1; id <= count; ++id) world.addRink(id, "Rink " + std::to_string(id));
    settle();
  }
  void clickRow(int row) {
    QTest::mouseClick(list, Qt::LeftButton, {}, QPoint(100, row * 76 + 10));
    settle();
  }
  std::int64_t selectedID() const { return list->selectedRink() ? list->selectedRink()->rinkID : 0; }

  Window window;
  QScrollArea* scroller = new QScrollArea(&window);
  RinkListView* list = new RinkListView(world.context);
  NotificationRecorder selections{world.sim.notifications, world.sim.world, {kSelectionChanged}};
};

TEST_F(RinkListViewTest, isAsHighAsItsRowsOrTheRoomFromTheNextChangeOfTheRoomOn) {
  EXPECT_EQ(list->size(), QSize(kWidth, kHeight));
  addRinks(8);
  EXPECT_EQ(list->height(), kHeight) << "reading the list alone changes nothing";
  scroller->resize(kWidth, 450);
  settle();
  EXPECT_EQ(list->height(), 8 * 76);
  scroller->resize(kWidth, 900);
  settle();
  EXPECT_EQ(list->height(), 900);
}

TEST_F(RinkListViewTest, aClickSelectsAndBelowTheLastRowClears) {
  addRinks(3);
  clickRow(1);
  EXPECT_EQ(selectedID(), 2);
  EXPECT_EQ(world.application.changes, 1);
  EXPECT_EQ(selections.count(kSelectionChanged, list), 1U);
  clickRow(1);
  EXPECT_EQ(world.application.changes, 1) << "the same row again";
  clickRow(4);
  EXPECT_EQ(selectedID(), 0);
  EXPECT_EQ(world.application.changes, 2);
  list->enabled = false;
  clickRow(0);
  EXPECT_EQ(selectedID(), 0) << "a closed list";
  EXPECT_EQ(selections.deliveries().size(), 2U);
}

TEST_F(RinkListViewTest, arrowKeysGoThroughTheRows) {
  addRinks(3);
  const std::tuple<std::int64_t, Qt::Key, std::int64_t> cases[] = {{0, Qt::Key_Up, 3},   {0, Qt::Key_Down, 1},
                                                                   {1, Qt::Key_Up, 1},   {1, Qt::Key_Down, 2},
                                                                   {3, Qt::Key_Down, 3}, {3, Qt::Key_Up, 2}};
  for (const auto& [before, key, after] : cases) {
    list->selectRink(world.dataModel.rinkInfo(before));
    QTest::keyClick(list, key);
    EXPECT_EQ(selectedID(), after) << before;
  }
  EXPECT_EQ(world.application.changes, 0) << "keys leave the state file alone";
}

TEST_F(RinkListViewTest, aSelectedRinkThatLeavesTheListStaysSelectedWithoutARow) {
  addRinks(2);
  clickRow(0);
  RinkListFile rest;
  rest.rinks.push_back(*world.dataModel.rinkInfo(2));
  world.dataModel.mergeRinkList(rest);
  settle();
  ASSERT_EQ(list->rinks().size(), 1U);
  EXPECT_EQ(selectedID(), 1);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(selectedID(), 1);
}

}  // namespace
}  // namespace tarvel
