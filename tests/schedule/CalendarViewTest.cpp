#include "schedule/CalendarView.h"

#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <tuple>

#include "ScheduleWorld.h"
#include "simulation/ports/NotificationRecorder.h"
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

  test::ScheduleWorld world;  // Wednesday, 2026-03-18
  Window window;
  CalendarView* view;
  QScrollArea* area;
  NotificationRecorder recorder{world.sim.notifications, world.sim.world, {kCalendarSelectionChanged}};
};

TEST_F(CalendarViewTest, sizeFollowsMonthsAndSuperview) {
  show();
  EXPECT_EQ(view->size(), QSize(180, 1220));
  area->resize(160, 1500);
  EXPECT_EQ(view->size(), QSize(160, 1500));
  view->setRange(ymd(3, 1), ymd(3, 31));
  area->resize(161, 50);
  EXPECT_EQ(view->size(), QSize(161, 106)) << "one month of five weeks from 6 on";
}

TEST_F(CalendarViewTest, dateIsHeldWithinTheRangeAndOnlyAnotherSelectionAnnounced) {
  EXPECT_TRUE(view->setDate(packedDate(2027, 1, 1), Animate::no));
  EXPECT_EQ(view->currentDate(), ymd(12, 31));
  EXPECT_FALSE(view->setDate(packedDate(2030, 1, 1), Animate::no));
  EXPECT_TRUE(view->setDate(packedDate(2025, 12, 31), Animate::no));
  EXPECT_EQ(view->currentDate(), ymd(1, 1));
  view->setDate(ymd(5, 5), Animate::no);
  const std::size_t before = announcements();
  EXPECT_TRUE(view->setDate(ymd(5, 9), Animate::no)) << "another date of the same week";
  EXPECT_EQ(announcements(), before);
  view->setPeriodOption(PeriodViewOption::month);
  EXPECT_EQ(announcements(), before + 1);
  EXPECT_EQ(view->lastSelectedDate(), ymd(5, 31));
}

TEST_F(CalendarViewTest, scrollsToTheDateUnlessSuppressed) {
  view->setDate(ymd(6, 10), Animate::no);
  show();
  EXPECT_EQ(top(), 392) << "once it can be seen";
  area->verticalScrollBar()->setValue(0);
  EXPECT_FALSE(view->setDate(ymd(6, 10), Animate::no));
  EXPECT_EQ(top(), 392) << "the same date brings its month back";
  view->setSuppressScrolling(true);
  view->setDate(ymd(9, 10), Animate::no);
  EXPECT_EQ(top(), 392);
  view->setSuppressScrolling(false);
  view->setPreferFuture(true);
  view->setDate(ymd(6, 10), Animate::no);
  EXPECT_EQ(top(), 506);
}

TEST_F(CalendarViewTest, clickChoosesAndLeavesTheMonthsWhereTheyAre) {
  show();
  area->verticalScrollBar()->setValue(400);
  click(21.0 + 45.0, 392.0 + 24.0 + 30.0);  // May's third row, Tuesday
  EXPECT_EQ(view->currentDate(), ymd(5, 12));
  EXPECT_EQ(top(), 400);
  EXPECT_EQ(announcements(), 1U);
  click(21.0 + 45.0, 392.0 + 24.0 + 50.0, Qt::RightButton);
  click(10.0, 392.0 + 24.0 + 50.0);
  view->setEnabled(false);
  click(21.0 + 45.0, 392.0 + 24.0 + 50.0);
  EXPECT_EQ(view->currentDate(), ymd(5, 12));
}

TEST_F(CalendarViewTest, commandsTooCloseTogetherAreOne) {
  world.sim.pretendTime.setOffset(86'400.0 * 20);
  view->setDate(ymd(5, 5), Animate::no);
  view->gotoNext();
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
  EXPECT_EQ(view->currentDate(), ymd(4, 7)) << "a clock that is set back holds up nothing";
}

TEST_F(CalendarViewTest, keysMoveByWhatCanBeSeen) {
  using P = PeriodViewOption;
  const std::tuple<P, int, PackedDate> cases[] = {
      {P::day, Qt::Key_Left, ymd(5, 30)},    {P::day, Qt::Key_Down, ymd(6, 7)},
      {P::week, Qt::Key_Left, ymd(5, 24)},   {P::week, Qt::Key_Down, ymd(6, 7)},
      {P::month, Qt::Key_Right, ymd(6, 30)}, {P::month, Qt::Key_Up, ymd(4, 30)},
      {P::day, Qt::Key_PageUp, ymd(4, 30)},  {P::week, Qt::Key_PageDown, ymd(6, 30)},
      {P::week, Qt::Key_Home, ymd(1, 1)},    {P::day, Qt::Key_End, ymd(12, 31)}};
  show();
  for (const auto& [period, key, date] : cases) {
    pass(1.0);
    view->setPeriodOption(period);
    view->setDate(ymd(5, 31), Animate::no);
    press(key);
    EXPECT_EQ(view->currentDate(), date) << key;
  }
}

TEST_F(CalendarViewTest, todayMovesWithTheMachinesDayAndZone) {
  struct : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  } paints;
  show();
  view->installEventFilter(&paints);
  const auto paintsOfAMinute = [&] {
    paints.count = 0;
    world.sim.notifications.postNotification(kCurrentTimeOfDayChanged);
    world.runUntilIdle();
    QApplication::processEvents();
    return paints.count;
  };
  EXPECT_EQ(paintsOfAMinute(), 0);
  world.sim.world.setMachineZone(*TimeZone::named("Pacific/Kiritimati"));  // Thursday there
  EXPECT_EQ(paintsOfAMinute(), 1);
  EXPECT_EQ(paintsOfAMinute(), 0);
  world.sim.world.stepWall(-86'400.0);
  EXPECT_EQ(paintsOfAMinute(), 1);
}

}  // namespace
}  // namespace tarvel
