#include "mainwindow/NoticesView.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVariantAnimation>

#include "NoticesWorld.h"
#include "mainwindow/NoticesPane.h"
#include "ui/Painted.h"

namespace tarvel {
namespace {

using test::notice;

class NoticesViewTest : public test::NoticesWorld {
 protected:
  NoticesViewTest() {
    pane->resize(window.size());
    pane->show();
    view.setRinkData(rink);
    settle();
  }
  ~NoticesViewTest() override { pane->close(); }

  void clickAt(double y) {
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(100, static_cast<int>(y)));
    settle();
  }
  void clickRow(std::size_t row) { clickAt(view.offsets()[row] + 5); }
  int selected() const {
    return view.selectedNotice() ? static_cast<int>(view.selectedNotice()->noticeID) : 0;
  }

  NoticesPane* pane = new NoticesPane(world.context, &window);
  NoticesView& view = pane->noticesView();
};

TEST_F(NoticesViewTest, ClicksSelectAndTheSelectionOutlivesAReload) {
  const NoticeList list = {notice(1), notice(2, ""), notice(3, "", ""),
                           notice(4, "Long", std::string(10'000, 'x'))};
  NoticesView narrow(world.context);
  narrow.resize(0, 0);
  narrow.setRinkData(rink);
  publish(list);
  EXPECT_EQ(narrow.offsets().size(), 5U) << "also while there is no room";
  ASSERT_EQ(view.offsets().size(), 5U);
  EXPECT_GT(view.height(), 2'000) << "a long text shows in full";
  for (const std::size_t row : {0U, 2U, 1U}) {
    clickRow(row);
    EXPECT_EQ(selected(), static_cast<int>(row) + 1);
  }
  publish({list[1], notice(5)});
  EXPECT_EQ(selected(), 2);
  const QColor frame = color(kSelectedContentBackground, &view);
  const QRect ink = test::inkOf(test::painted(view), [&](const QColor& pixel) { return pixel == frame; });
  EXPECT_EQ(ink, QRect(0, 0, view.width(), static_cast<int>(view.offsets()[1])));
  clickAt(view.offsets().back() + 4);
  EXPECT_EQ(selected(), 0) << "below the last row";
  clickRow(0);
  publish({notice(2)});
  EXPECT_EQ(selected(), 0) << "the same id, but another notice";
}

TEST_F(NoticesViewTest, ASelectionWaitsForTheListAndScrollsToItsRow) {
  NoticeList list;
  for (int id = 1; id <= 30; ++id) list.push_back(notice(id));
  rink->adoptNotices({test::ScheduleWorld::kFileDate, list});
  view.needsData();
  view.selectNotice(list[25]);
  EXPECT_EQ(selected(), 0);
  settle();
  EXPECT_EQ(selected(), 26);
  view.findChild<QVariantAnimation*>()->setCurrentTime(ScrollableView::kScrollMilliseconds);
  EXPECT_EQ(pane->scroller().verticalScrollBar()->value() + pane->scroller().viewport()->height(),
            view.offsets()[26]);
  view.selectNotice(notice(26));
  EXPECT_EQ(selected(), 0) << "not in the list";
}

TEST_F(NoticesViewTest, FollowsTheWidthAndTheWindowsState) {
  publish({notice(1, "A summary that needs two lines in a narrow view")});
  const double wide = view.offsets()[1];
  pane->resize(240, 400);
  settle();
  EXPECT_GT(view.offsets()[1], wide);
  EXPECT_EQ(view.width(), pane->scroller().viewport()->width());

  clickRow(0);
  EXPECT_TRUE(view.isActive());
  Window other;
  other.resize(100, 100);
  other.makeKeyAndOrderFront();
  settle();
  EXPECT_FALSE(view.isActive());
}

}  // namespace
}  // namespace tarvel
