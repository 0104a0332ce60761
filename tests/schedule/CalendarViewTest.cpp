#include "schedule/CalendarView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "ScheduleWorld.h"
#include "support/NotificationRecorder.h"
#include "ui/NamedColors.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr PackedDate ymd(int month, int day) {
  return packedDate(2026, month, day);
}

/// The calendar of 2026 in a scroll area, in a window that is the main one. Its months begin at 6, 106, 192,
/// 292, 392, 506, 606, ... and end at 1220.
class CalendarViewTest : public testing::Test {
 protected:
  static constexpr int kWidth = 180;
  static constexpr int kHeight = 215;

  CalendarViewTest() : view(new CalendarView(world.context)), area(new QScrollArea(&window)) {
    area->setFrameShape(QFrame::NoFrame);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->resize(kWidth, kHeight);
    area->setWidget(view);
    view->setPeriodOption(PeriodViewOption::week);
    view->setRange(ymd(1, 1), ymd(12, 31));
    window.resize(kWidth, kHeight);
  }

  void show() {
    window.show();
    QApplication::setActiveWindow(&window);
    QApplication::processEvents();
  }
  int top() const { return area->verticalScrollBar()->value(); }
  std::size_t announcements() {
    world.runUntilIdle();
    return recorder.count(kCalendarSelectionChanged, view);
  }
  void click(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
    QMouseEvent press(QEvent::MouseButtonPress, {x, y}, view->mapToGlobal(QPointF(x, y)), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(view, &press);
  }
  void press(int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(view, &event);
  }
  void pass(double seconds) { world.sim.world.runFor(seconds); }
  QColor pixel(int x, int y) const { return view->grab().toImage().pixelColor(x, y); }

  test::ScheduleWorld world;  // Wednesday, 2026-03-18
  Window window;
  CalendarView* view;
  QScrollArea* area;
  NotificationRecorder recorder{world.sim.notifications, world.sim.world, {kCalendarSelectionChanged}};
};

TEST_F(CalendarViewTest, sizeFollowsMonthsAndSuperview) {
  show();
  EXPECT_EQ(view->size(), QSize(180, 1220));
  EXPECT_EQ(view->layout().colWidth(), 20.0);
  area->resize(160, 1500);
  EXPECT_EQ(view->size(), QSize(160, 1500));
  EXPECT_EQ(view->layout().colWidth(), 18.0);
  view->setRange(ymd(3, 1), ymd(3, 31));
  EXPECT_EQ(view->size(), QSize(160, 1500));
  area->resize(161, 50);
  EXPECT_EQ(view->size(), QSize(161, 106)) << "one month of five weeks from 6 on";
  EXPECT_EQ(view->layout().colWidth(), 20.0);
}

TEST_F(CalendarViewTest, rangeOfOneMonthHasNothingToScroll) {
  show();
  view->setRange(ymd(3, 1), ymd(3, 31));
  EXPECT_EQ(view->height(), kHeight);
  view->setDate(ymd(3, 31), Animate::no);
  EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(top(), 0);
}

TEST_F(CalendarViewTest, dateIsHeldWithinTheRange) {
  EXPECT_TRUE(view->setDate(ymd(5, 1), Animate::no));
  EXPECT_FALSE(view->setDate(ymd(5, 1), Animate::no));
  EXPECT_TRUE(view->setDate(packedDate(2027, 1, 1), Animate::no));
  EXPECT_EQ(view->currentDate(), ymd(12, 31));
  EXPECT_FALSE(view->setDate(packedDate(2030, 1, 1), Animate::no));
  EXPECT_TRUE(view->setDate(packedDate(2025, 12, 31), Animate::no));
  EXPECT_EQ(view->currentDate(), ymd(1, 1));
}

TEST_F(CalendarViewTest, onlyAnotherSelectionIsAnnounced) {
  view->setDate(ymd(5, 5), Animate::no);
  EXPECT_EQ(announcements(), 1U);
  EXPECT_EQ(view->firstSelectedDate(), ymd(5, 3));
  EXPECT_EQ(view->lastSelectedDate(), ymd(5, 9));
  EXPECT_TRUE(view->setDate(ymd(5, 9), Animate::no)) << "another date of the same week";
  EXPECT_EQ(announcements(), 1U);
  view->setDate(ymd(5, 10), Animate::no);
  EXPECT_EQ(announcements(), 2U);
  view->setPeriodOption(PeriodViewOption::month);
  EXPECT_EQ(announcements(), 3U);
  EXPECT_EQ(view->lastSelectedDate(), ymd(5, 31));
}

TEST_F(CalendarViewTest, scrollsToTheDateUnlessSuppressed) {
  show();
  view->setDate(ymd(6, 10), Animate::no);
  EXPECT_EQ(top(), 392);
  area->verticalScrollBar()->setValue(0);
  EXPECT_FALSE(view->setDate(ymd(6, 10), Animate::no));
  EXPECT_EQ(top(), 392) << "the same date brings its month back";
  view->setSuppressScrolling(true);
  view->setDate(ymd(9, 10), Animate::no);
  view->setDate(ymd(9, 10), Animate::no);
  EXPECT_EQ(top(), 392);
  view->setSuppressScrolling(false);
  view->setPreferFuture(true);
  view->setDate(ymd(6, 10), Animate::no);
  EXPECT_EQ(top(), 506);
}

TEST_F(CalendarViewTest, animatedScrollBeginsWhereItIs) {
  show();
  view->setDate(ymd(3, 10), Animate::no);
  EXPECT_EQ(top(), 106);
  view->setDate(ymd(4, 10), Animate::yes);
  EXPECT_EQ(top(), 106);
  view->setDate(ymd(4, 20), Animate::no);
  EXPECT_EQ(top(), 192);
}

TEST_F(CalendarViewTest, scrollsOnceItCanBeSeen) {
  view->setDate(ymd(6, 10), Animate::no);
  show();
  EXPECT_EQ(top(), 392);
}

TEST_F(CalendarViewTest, clickChoosesAndLeavesTheMonthsWhereTheyAre) {
  show();
  area->verticalScrollBar()->setValue(400);
  click(21.0 + 45.0, 392.0 + 24.0 + 30.0);  // May's third row, Tuesday
  EXPECT_EQ(view->currentDate(), ymd(5, 12));
  EXPECT_EQ(view->firstSelectedDate(), ymd(5, 10));
  EXPECT_EQ(top(), 400);
  EXPECT_EQ(announcements(), 1U);
  click(21.0 + 45.0, 392.0 + 24.0 + 30.0, Qt::RightButton);
  click(10.0, 392.0 + 24.0 + 50.0);
  EXPECT_EQ(view->currentDate(), ymd(5, 12));

  view->setDate(ymd(5, 20), Animate::no);
  EXPECT_NE(top(), 400) << "what isn't clicked scrolls again";
}

TEST_F(CalendarViewTest, clickGridMovesWithTheWidth) {
  show();
  view->setPeriodOption(PeriodViewOption::day);
  click(20.0, 50.0);
  EXPECT_EQ(view->currentDate(), kNoDate);
  area->resize(160, kHeight);
  click(20.0, 50.0);
  EXPECT_EQ(view->currentDate(), ymd(1, 4));
}

TEST_F(CalendarViewTest, disabledViewLeavesClicksToWhatIsBehind) {
  show();
  struct Behind : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      presses += event->type() == QEvent::MouseButtonPress;
      return false;
    }
    int presses = 0;
  } behind;
  area->viewport()->installEventFilter(&behind);
  click(30.0, 50.0);
  EXPECT_EQ(behind.presses, 0);
  view->setEnabled(false);
  click(30.0, 80.0);
  EXPECT_EQ(behind.presses, 1);
  EXPECT_EQ(view->currentDate(), ymd(1, 4));
  view->gotoNext();
  EXPECT_EQ(view->currentDate(), ymd(1, 11)) << "the commands don't come from the mouse";
}

TEST_F(CalendarViewTest, commandsTooCloseTogetherAreOne) {
  view->setDate(ymd(5, 5), Animate::no);
  view->gotoNext();
  view->gotoNext();
  EXPECT_EQ(view->currentDate(), ymd(5, 12));
  pass(0.0625);
  view->gotoPrev();
  view->gotoToday();
  EXPECT_EQ(view->currentDate(), ymd(5, 12));
  pass(0.0625);
  view->gotoPrev();
  EXPECT_EQ(view->currentDate(), ymd(5, 5)) << "what was swallowed doesn't put off the next";
  pass(1.0);
  world.sim.world.stepWall(-3600.0);
  view->gotoToday();
  EXPECT_EQ(view->currentDate(), ymd(3, 18)) << "a clock that is set back holds up nothing";
}

TEST_F(CalendarViewTest, todayIsPretendedToo) {
  world.sim.pretendTime.setOffset(86'400.0 * 20);
  view->gotoToday();
  EXPECT_EQ(view->currentDate(), ymd(4, 7));
}

TEST_F(CalendarViewTest, keysMoveByWhatCanBeSeen) {
  struct Case {
    PeriodViewOption period;
    int key;
    PackedDate date;
  };
  const Case cases[] = {
      {PeriodViewOption::day, Qt::Key_Left, ymd(5, 30)},
      {PeriodViewOption::day, Qt::Key_Right, ymd(6, 1)},
      {PeriodViewOption::day, Qt::Key_Up, ymd(5, 24)},
      {PeriodViewOption::day, Qt::Key_Down, ymd(6, 7)},
      {PeriodViewOption::week, Qt::Key_Left, ymd(5, 24)},
      {PeriodViewOption::week, Qt::Key_Down, ymd(6, 7)},
      {PeriodViewOption::month, Qt::Key_Right, ymd(6, 30)},
      {PeriodViewOption::month, Qt::Key_Up, ymd(4, 30)},
      {PeriodViewOption::day, Qt::Key_PageUp, ymd(4, 30)},
      {PeriodViewOption::week, Qt::Key_PageDown, ymd(6, 30)},
      {PeriodViewOption::week, Qt::Key_Home, ymd(1, 1)},
      {PeriodViewOption::day, Qt::Key_End, ymd(12, 31)},
      {PeriodViewOption::day, Qt::Key_Space, ymd(5, 31)},
  };
  show();
  for (const Case& c : cases) {
    pass(1.0);
    view->setPeriodOption(c.period);
    view->setDate(ymd(5, 31), Animate::no);
    press(c.key);
    EXPECT_EQ(view->currentDate(), c.date) << c.key;
  }
  press(Qt::Key_Left);
  const PackedDate after = view->currentDate();
  press(Qt::Key_Left);
  EXPECT_EQ(view->currentDate(), after) << "a key that repeats is a command like any other";
}

TEST_F(CalendarViewTest, selectionLooksOtherThanInTheMainWindow) {
  show();
  view->setDate(ymd(1, 14), Animate::no);  // the week from 11, in the third row, which begins at 57
  const QColor background = color(kContentBackground2, view);
  ASSERT_TRUE(view->isMainWindow());
  EXPECT_EQ(pixel(24, 60), color(kSelectedContentBackground, view));
  EXPECT_EQ(pixel(158, 69), color(kSelectedContentBackground, view));
  EXPECT_EQ(pixel(24, 56), background);
  EXPECT_EQ(pixel(20, 60), background);
  EXPECT_EQ(pixel(161, 60), background);
  QApplication::setActiveWindow(nullptr);
  ASSERT_FALSE(view->isMainWindow());
  // Three fifths light grey, and half of that.
  const QColor active = color(kSelectedContentBackground, view);
  const auto expected = [](int part, int below) { return ((part * 0.4 + 170 * 0.6) + below) / 2; };
  const QColor inactive = pixel(24, 60);
  EXPECT_NEAR(inactive.red(), expected(active.red(), background.red()), 2.0);
  EXPECT_NEAR(inactive.green(), expected(active.green(), background.green()), 2.0);
  EXPECT_NEAR(inactive.blue(), expected(active.blue(), background.blue()), 2.0);
}

TEST_F(CalendarViewTest, redrawsForWhatChangesItsLook) {
  struct Paintings : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint;
      return false;
    }
    int count = 0;
  } paintings;
  show();
  view->installEventFilter(&paintings);
  const auto paintedBy = [&](auto change) {
    QApplication::processEvents();
    paintings.count = 0;
    change();
    QApplication::processEvents();
    return paintings.count;
  };
  EXPECT_EQ(paintedBy([&] { world.sim.notifications.deliver({kCurrentDateChanged, {}, {}}); }), 1);
  EXPECT_EQ(paintedBy([&] { QApplication::setActiveWindow(nullptr); }), 1);
  EXPECT_EQ(paintedBy([&] { QApplication::setActiveWindow(&window); }), 1);
  EXPECT_EQ(paintedBy([&] { view->setDate(ymd(1, 14), Animate::no); }), 1);
  EXPECT_EQ(paintedBy([&] { view->setDate(ymd(1, 15), Animate::no); }), 0);
  EXPECT_EQ(paintedBy([&] { view->setPeriodOption(PeriodViewOption::day); }), 1);
  EXPECT_EQ(paintedBy([&] { view->setRange(ymd(1, 1), ymd(12, 31)); }), 0);
  view->close();
  EXPECT_EQ(paintedBy([&] { view->needsRedraw(); }), 0);
}

TEST_F(CalendarViewTest, numbersEndAtTheRightOfTheirColumns) {
  show();
  const QImage image = view->grab().toImage();
  const QColor background = color(kContentBackground2, view);
  for (const int column : {0, 3, 6}) {  // 4, 7 and 10 January, with nothing chosen
    const int left = 21 + 20 * column;
    int end = 0;
    for (int x = left; x < left + 20; ++x) {
      for (int y = 44; y < 56; ++y) {
        if (image.pixelColor(x, y) != background) end = x + 1;
      }
    }
    EXPECT_LE(end, left + 17) << column;
    EXPECT_GE(end, left + 14) << column;
  }
}

TEST_F(CalendarViewTest, focusIsSeenOnceTheKeyboardIsUsed) {
  show();
  view->setDate(ymd(1, 14), Animate::no);
  const QColor ring = color(kKeyboardFocusIndicator, view);
  view->clearFocus();
  view->setFocus(Qt::MouseFocusReason);
  EXPECT_NE(pixel(90, 55), ring);
  press(Qt::Key_Up);
  pass(1.0);
  press(Qt::Key_Down);
  EXPECT_EQ(pixel(90, 55), ring);
  view->clearFocus();
  EXPECT_NE(pixel(90, 55), ring);
  view->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(pixel(90, 55), ring);
}

TEST_F(CalendarViewTest, todayIsOutlinedAndMovesWithTheDate) {
  show();
  const QColor label = color(kLabel, view);
  // March begins at 192, on a Sunday: the 18th is in the third row, in column 3.
  const auto outlined = [&](int column) { return pixel(21 + 20 * column + 10, 192 + 23 + 28) == label; };
  EXPECT_TRUE(outlined(3));
  EXPECT_FALSE(outlined(4));
  pass(86'400.0);
  EXPECT_FALSE(outlined(3));
  EXPECT_TRUE(outlined(4));
}

TEST_F(CalendarViewTest, closedViewHearsAndDrawsNothing) {
  world.sim.notifications.deliver({kCheckObservers, {}, {}});
  const auto mine = [&] {
    const auto& lines = world.census.lines();
    return std::count_if(lines.begin(), lines.end(),
                         [](const ReportLine& line) { return line.text == "   CalendarView"; });
  };
  EXPECT_EQ(mine(), 1);
  const auto before = CalendarView::liveCount();
  {
    CalendarView other(world.context, area);
    EXPECT_EQ(CalendarView::liveCount(), before + 1);
  }
  EXPECT_EQ(CalendarView::liveCount(), before);
  view->close();
  world.sim.notifications.deliver({kCheckObservers, {}, {}});
  EXPECT_EQ(mine(), 1);
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  view->render(&image, {}, QRegion(0, 0, 20, 20), QWidget::RenderFlags());
  EXPECT_EQ(image.pixelColor(10, 10), QColor(Qt::magenta));
}

}  // namespace
}  // namespace tarvel
