#include "mainwindow/MainWindowController.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "schedule/ScheduleWorld.h"

namespace tarvel {
namespace {

using test::ScheduleWorld;

class MainWindowControllerTest : public testing::Test {
 protected:
  ~MainWindowControllerTest() override {
    if (!controller->isClosing) controller->window()->close();
  }

  /// Rinks 1 and 2 in use; rink 1 has two venues.
  void addRinks() {
    world.addRink(1, "North");
    world.addRink(2, "South");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Far", 2), ScheduleWorld::venue(7, "Near", 1)});
    world.openRink(2, {ScheduleWorld::venue(1, "Only", 1)});
    settle();
  }
  void open() {
    controller->defaultSettings();
    controller->showWindow();
    settle();
  }
  void choose(std::int64_t rinkID) {
    controller->rinkSidebar().rinkListView().selectRink(world.dataModel.rinkInfo(rinkID));
    settle();
  }
  void settle() {
    world.runUntilIdle();
    QApplication::processEvents();
  }
  /// Time passes for the rinks as their clock ticks.
  void pass(double seconds) {
    world.sim.world.runFor(seconds);
    for (const auto& each : world.dataModel.recentRinks) each->updateTimeWithNow(world.sim.pretendTime.now());
    settle();
  }
  void setWidth(double width) {
    Rect frame = controller->window()->frame();
    frame.width = width;
    controller->window()->setFrame(frame);
    settle();
  }
  const WeeklyScheduleView& week() { return controller->schedulePane().weeklyView(); }
  QString description() { return controller->titleRow().descriptionText(); }

  ScheduleWorld world;
  std::shared_ptr<RinkData> rink;
  std::unique_ptr<MainWindowController> controller = MainWindowController::create(world.context);
};

TEST_F(MainWindowControllerTest, aFirstStartTellsWhatGoesOnAndThenShowsAllRinks) {
  world.dataModel.refreshState.refreshInProgress = true;
  open();
  RinkSidebar& sidebar = controller->rinkSidebar();
  EXPECT_EQ(sidebar.emptyListMessage(), "Loading the list of rinks from http://rinks.test…");
  pass(2.0);
  for (int id = 1; id <= 30; ++id) world.addRink(id, "Rink");
  world.dataModel.refreshState.refreshInProgress = false;
  settle();
  settle();
  EXPECT_EQ(sidebar.emptyListMessage(), "");
  EXPECT_TRUE(sidebar.rinkListView().isVisible());
  EXPECT_EQ(sidebar.rinkListView().height(), 30 * 76) << "all of them can be reached";
  EXPECT_EQ(controller->currentRinkData(), nullptr);
}

TEST_F(MainWindowControllerTest, aServerOutOfReachIsSaidAndTheWaitCountsDown) {
  world.dataModel.refreshState.errorKind = DownloadErrorKind::connectionError;
  world.refresher.secondsToNext = 540.0;
  open();
  RinkSidebar& sidebar = controller->rinkSidebar();
  EXPECT_EQ(sidebar.emptyListMessage(),
            "Unable to contact server\nhttp://rinks.test\n\nNext try in 9 minutes");
  world.refresher.secondsToNext = 420.0;
  world.sim.world.runFor(120.0);
  EXPECT_EQ(sidebar.refreshStatus().statusText(), "Unable to contact server — next try in 7 minutes");
  QTest::mouseClick(&sidebar.refreshStatus().button(), Qt::LeftButton);
  EXPECT_EQ(world.refresher.refreshes, 1);
}

TEST_F(MainWindowControllerTest, theRefreshLineGrowsOldWithTheClock) {
  addRinks();
  rink->refreshState.lastRefreshTimeStamp = world.sim.world.now();
  open();
  choose(1);
  RefreshStatusView& status = controller->titleRow().refreshStatus();
  EXPECT_EQ(status.statusText(), "Updated just now");
  world.sim.world.runFor(5 * 60.0 + 1.0);
  EXPECT_EQ(status.statusText(), "Updated 5 minutes ago");
  rink->refreshState.refreshInProgress = true;
  rink->postNotification(kRefreshStatusChanged);
  settle();
  EXPECT_EQ(status.statusText(), "Refreshing…");
  QTest::keyClick(controller->window(), Qt::Key_F5);
  EXPECT_EQ(ScheduleWorld::refresherOf(*rink).refreshes, 1);
}

TEST_F(MainWindowControllerTest, choosingARinkShowsItsWeekAndAsksForWhatIsDue) {
  addRinks();
  open();
  choose(1);
  EXPECT_EQ(controller->currentRinkData(), rink);
  EXPECT_EQ(description(), "Week of 3/15/26");
  EXPECT_EQ(week().chosenVenueID(), 7) << "the first in the order of display";
  EXPECT_EQ(ScheduleWorld::refresherOf(*rink).dueChecks, 1);
  EXPECT_EQ(rink->lastViewed, world.sim.world.now());
  choose(2);
  EXPECT_EQ(rink->weeklyVenueID, 7) << "a rink keeps what was chosen for it";
  EXPECT_EQ(week().chosenVenueID(), 1);
  choose(0);
  EXPECT_EQ(controller->currentRinkData(), nullptr);
  EXPECT_EQ(description(), "");
}

TEST_F(MainWindowControllerTest, aVenueIsChosenByItsButton) {
  addRinks();
  open();
  choose(1);
  QPushButton* far = nullptr;
  for (auto* button : controller->window()->findChildren<QPushButton*>()) {
    if (button->text() == "Far" && button->isVisible()) far = button;
  }
  ASSERT_TRUE(far);
  QTest::mouseClick(far, Qt::LeftButton);
  settle();
  EXPECT_EQ(week().chosenVenueID(), 4);
  EXPECT_EQ(rink->weeklyVenueID, 4);
  EXPECT_EQ(world.application.changes, 1);
}

TEST_F(MainWindowControllerTest, weeksAreTurnedWithinTheRinksOffer) {
  addRinks();
  open();
  choose(1);
  struct Step {
    Qt::Key key;
    const char* description;
  };
  const Step steps[] = {
      {Qt::Key_Left, "Week of 3/8/26"},   {Qt::Key_Left, "Week of 3/8/26"},
      {Qt::Key_Right, "Week of 3/15/26"}, {Qt::Key_Right, "Week of 3/22/26"},
      {Qt::Key_Right, "Week of 3/29/26"}, {Qt::Key_Right, "Week of 3/29/26"},
  };
  for (const Step& step : steps) {
    QTest::keyClick(controller->window(), step.key);
    EXPECT_EQ(description(), step.description);
    EXPECT_FALSE(week().isAwaitingData) << "a page that was turned to is drawn at once";
  }
  controller->gotoNow();
  EXPECT_EQ(description(), "Week of 3/15/26");
  EXPECT_EQ(controller->schedulePane().displayDate(), packedDate(2026, 3, 18));
}

TEST_F(MainWindowControllerTest, aNarrowerOfferMovesTheDateIntoIt) {
  addRinks();
  open();
  choose(1);
  rink->lastWeek = packedDate(2026, 3, 8);
  rink->postNotification(kDateRangeChanged);
  settle();
  EXPECT_EQ(controller->schedulePane().displayDate(), packedDate(2026, 3, 14));
  EXPECT_EQ(description(), "Week of 3/8/26");
}

TEST_F(MainWindowControllerTest, theWeekInViewFollowsTheClockAndAnotherStays) {
  addRinks();
  open();
  choose(1);
  pass(3 * 86400.0 + 13.9 * 3600.0);  // Saturday, shortly before midnight
  EXPECT_EQ(description(), "Week of 3/15/26");
  pass(0.2 * 3600.0);
  EXPECT_EQ(description(), "Week of 3/22/26");
  controller->prev();
  pass(7 * 86400.0);
  EXPECT_EQ(description(), "Week of 3/15/26");
}

TEST_F(MainWindowControllerTest, theSpanOfTheDayGrowsWithTheWeeksAndBeginsAnewWithARink) {
  addRinks();
  rink->venue(7)
      ->weeklySchedule(packedDate(2026, 3, 15))
      ->adopt({{}, {{SessionKind::party, 5, 1380, 90, "", ""}}});
  open();
  choose(1);
  EXPECT_EQ(week().layout().axis().endOfDay, 1470);
  controller->next();
  settle();
  EXPECT_EQ(week().layout().axis().endOfDay, 1470) << "it never shrinks while the rink stays";
  choose(2);
  EXPECT_EQ(week().layout().axis().endOfDay, 1440);
}

TEST_F(MainWindowControllerTest, theWindowGrowsForTheListAndShrinksBackByTheSame) {
  open();
  controller->toggleShowRinks();
  setWidth(820.0);
  const Rect narrow = controller->window()->frame();
  ASSERT_EQ(narrow.width, 820.0);
  controller->toggleShowRinks();
  settle();
  EXPECT_EQ(controller->window()->frame().width, 750.0 + 248.0);
  EXPECT_TRUE(controller->rinkSidebar().isVisible());
  controller->toggleShowRinks();
  settle();
  EXPECT_EQ(controller->window()->frame(), narrow);
  EXPECT_FALSE(controller->rinkSidebar().isVisible());
  EXPECT_FALSE(controller->rinkSidebar().rinkListView().enabled);
  EXPECT_EQ(world.application.changes, 3);
}

TEST_F(MainWindowControllerTest, settingsComeBackInAnotherWindow) {
  addRinks();
  open();
  choose(1);
  controller->toggleShowRinks();
  PropertyList::Dictionary settings = controller->windowSettings();
  EXPECT_EQ(integerAt(settings, "rinkID"), 1);
  EXPECT_EQ(booleanAt(settings, "showRinks"), false);
  settings["fitVertically"] = false;
  settings["currentPaneKind"] = 2;
  settings["fontSizeScroll"] = 11.0;

  const auto second = MainWindowController::create(world.context);
  second->restoreSettings(settings, FromAnotherDocument::yes);
  second->showWindow();
  settle();
  EXPECT_EQ(second->currentRinkData(), rink);
  EXPECT_FALSE(second->showRinks());
  EXPECT_DOUBLE_EQ(second->schedulePane().weeklyView().layout().pointsPerMinute(), 1.5);
  settings["weeklyFontSizeScroll"] = 11.0;
  settings.erase("fontSizeScroll");
  EXPECT_TRUE(second->windowSettings() == settings);
  second->window()->close();
}

TEST_F(MainWindowControllerTest, aWindowWithoutARinkShowsTheList) {
  for (const PropertyList::Dictionary& settings :
       {PropertyList::Dictionary{{"rinkID", 0}, {"showRinks", false}},
        {{"rinkID", 99}, {"showRinks", false}}}) {
    controller->restoreSettings(settings, FromAnotherDocument::no);
    EXPECT_TRUE(controller->showRinks());
  }
}

TEST_F(MainWindowControllerTest, closingKeepsTheFrameAndHearsNothingMore) {
  addRinks();
  open();
  choose(1);
  controller->window()->performClose();
  ASSERT_EQ(world.application.removed.size(), 1U);
  EXPECT_EQ(world.application.removed[0].first, controller.get());
  EXPECT_EQ(world.application.removed[0].second, SaveFrame::yes);
  EXPECT_EQ(rink->weeklyVenueID, 7);
  rink->postNotification(kVenuesChanged);
  rink->postNotification(kRefreshStatusChanged);
  pass(86400.0);
  EXPECT_EQ(description(), "Week of 3/15/26");
}

}  // namespace
}  // namespace tarvel
