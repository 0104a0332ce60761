#include <QAccessible>

#include "SchedulePageTest.h"
#include "schedule/CalendarView.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/WeeklyScheduleView.h"

namespace tarvel {
namespace {

/// Wednesday, 10:00, is now. Near's week: Tuesday a public session from 10:00 to 12:00, Wednesday a freestyle
/// from 15:00 to 16:00, one from 17:00 on, and one that takes no time; Saturday one that begins after
/// midnight.
class ScheduleFocusTest : public test::SchedulePageTest {
 protected:
  ScheduleFocusTest() {
    weekOf(7).adopt({{},
                     {{SessionKind::publicSession, 2, 600, 120, "", ""},
                      {SessionKind::freestyle, 3, 900, 60, "", ""},
                      {SessionKind::freestyle, 3, 960, 0, "", ""},
                      {SessionKind::freestyle, 3, 1020, 60, "Adults", "bring gloves"},
                      {SessionKind::publicSession, 6, 1470, 60, "", ""}}});
    window.resize(760, 594);
  }
  ~ScheduleFocusTest() override {
    week->close();
    day->close();
  }
  void show(SchedulePageView* page) {
    page->resize(window.size());
    page->setChosenRink(rink);
    week->setWeekContaining(kWednesday);
    day->setChosenVenues({7, 4});
    day->setShowingDate(kWednesday);
    day->setCurrentDate(kWednesday, 600);
    page->raise();
    window.makeKeyAndOrderFront();
    settle();
  }
  /// As one who goes about by the keyboard.
  void goTo(QWidget* view, Qt::FocusReason reason = Qt::TabFocusReason) {
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    view->setFocus(reason);
    settle();
  }
  static std::string focused(const AccessibleView& view) {
    const AccessibleNode tree = view.accessibleTree();
    const AccessibleNode* node = findNode(tree, view.accessibleFocus());
    return node ? node->name.toStdString() : "";
  }

  DailyScheduleView* day = new DailyScheduleView(world.context, owner, &window);
  WeeklyScheduleView* week = new WeeklyScheduleView(world.context, owner, &window);
};

const std::string kTuesdays = "Public Session, 10:00 am to 12:00 pm, Tuesday, March 17, 2026";
const std::string kFirst = "Freestyle, 3:00 pm to 4:00 pm, Wednesday, March 18, 2026";
const std::string kSecond = "Freestyle, 5:00 pm to 6:00 pm, Adults, bring gloves, Wednesday, March 18, 2026";

TEST_F(ScheduleFocusTest, theArrowsLeadThroughTheWeek) {
  show(week);
  goTo(week);
  EXPECT_EQ(focused(*week), kFirst) << "the next one of today";
  const std::tuple<Qt::Key, std::string, bool> steps[] = {
      {Qt::Key_Down, kSecond, true},
      {Qt::Key_Down, kSecond, true},
      {Qt::Key_Left, kTuesdays, true},
      {Qt::Key_Left, "Monday, March 16, 2026", true},
      {Qt::Key_Left, "Sunday, March 15, 2026", true},
      {Qt::Key_Left, "Sunday, March 15, 2026", false},  // which the window turns the page by
      {Qt::Key_Right, "Monday, March 16, 2026", true},
      {Qt::Key_Right, kTuesdays, true},
      {Qt::Key_Right, kFirst, true},
      {Qt::Key_Escape, kFirst, false}};
  for (const auto& [key, name, taken] : steps) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    // Only what the page itself does with it.
    QCoreApplication::sendEvent(week, &press);
    EXPECT_EQ(focused(*week), name);
    EXPECT_EQ(press.isAccepted(), taken) << name;
  }
  EXPECT_EQ(owner.info.substr(0, 9), "Wednesday") << "the information follows the focus";
  QTest::keyClick(week, Qt::Key_Space);
  EXPECT_EQ(owner.selected, kWednesday);
  QTest::keyClick(week, Qt::Key_Return);
  EXPECT_EQ(owner.gone, std::tuple(7, kWednesday, 900));
}

TEST_F(ScheduleFocusTest, theFocusIsSeenAndAWindowThatOpensTakesNoKeys) {
  show(week);
  week->setFocus(Qt::ActiveWindowFocusReason);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
  QCoreApplication::sendEvent(week, &press);
  EXPECT_FALSE(press.isAccepted());
  week->clearFocus();
  const QColor ring = color(kKeyboardFocusIndicator, week);
  const Rect place = week->layout().grid().itemRect(3, *week->scheduleItems()[1]);
  const auto atRing = [&] {
    settle();
    return week->grab().toImage().pixelColor(static_cast<int>(place.x + place.width / 2),
                                             static_cast<int>(place.y) + 2);
  };
  EXPECT_NE(atRing(), ring);
  goTo(week);
  EXPECT_EQ(atRing(), ring);
  goTo(&window);
  EXPECT_NE(atRing(), ring);
  EXPECT_EQ(week->accessibleTree().children[6].children[0].name.toStdString(),
            "Public Session, 12:30 am to 1:30 am, Sunday, March 22, 2026");
}

TEST_F(ScheduleFocusTest, aDayIsATableOfVenues) {
  show(day);
  goTo(day, Qt::BacktabFocusReason);
  EXPECT_EQ(focused(*day), "Far") << "a venue without sessions";
  QTest::keyClick(day, Qt::Key_Left);
  EXPECT_EQ(focused(*day), kFirst);
  const AccessibleNode tree = day->accessibleTree();
  EXPECT_EQ(tree.children[0].description, "Today, 2 sessions");
  EXPECT_EQ(tree.children[1].description, "Today, no sessions");
  day->pressAccessible(tree.children[1].id);
  EXPECT_EQ(owner.gone, std::tuple(4, kWednesday, 300));
  day->pressAccessible("no such id");
  weekOf(7).adopt({});
  day->needsData();
  EXPECT_TRUE(day->accessibleTree().children.empty()) << "while data is awaited";
  settle();
  EXPECT_EQ(focused(*day), "Near") << "the session has gone";
}

TEST_F(ScheduleFocusTest, theCalendarIsATableOfMonths) {
  CalendarView calendar(world.context, &window);
  calendar.setRange(packedDate(2026, 2, 10), packedDate(2026, 4, 20));
  calendar.setDate(kWednesday, Animate::no);
  const AccessibleNode tree = calendar.accessibleTree();
  ASSERT_EQ(tree.children.size(), 3U);
  EXPECT_EQ(tree.children[1].name, "March 2026");
  EXPECT_EQ(tree.children[1].children[17].description, "Today");
  EXPECT_TRUE(tree.children[1].children[17].selected);
  EXPECT_FALSE(tree.children[0].children[8].focusable) << "out of range";
  EXPECT_EQ(focused(calendar), "Wednesday, March 18, 2026");
  calendar.pressAccessible(tree.children[2].children[0].id);
  EXPECT_EQ(calendar.currentDate(), packedDate(2026, 4, 1));
  calendar.setEnabled(false);
  calendar.pressAccessible(tree.children[1].children[0].id);
  EXPECT_EQ(calendar.currentDate(), packedDate(2026, 4, 1));
  calendar.close();
}

}  // namespace
}  // namespace tarvel
