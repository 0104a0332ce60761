#include <gtest/gtest.h>

#include <QTest>

#include "MainWindowFixture.h"

namespace tarvel {
namespace {

using test::ScheduleWorld;
using MainWindowControllerTest = test::MainWindowFixture;

TEST_F(MainWindowControllerTest, aFirstStartTellsWhatGoesOnAndThenShowsAllRinks) {
  world.dataModel.refreshState.errorKind = DownloadErrorKind::connectionError;
  world.refresher.secondsToNext = 540.0;
  open();
  RinkSidebar& sidebar = controller->rinkSidebar();
  EXPECT_EQ(sidebar.emptyList().message(),
            "Unable to contact server\nhttp://rinks.test\n\nNext try in 9 minutes");
  QTest::mouseClick(&sidebar.refreshStatus().button(), Qt::LeftButton);
  ASSERT_NE(controller->popovers().controller(), nullptr);
  EXPECT_FALSE(controller->windowShouldClose()) << "a popover is open";
  controller->popovers().controller()->refreshNowButton().click();
  EXPECT_EQ(world.refresher.refreshes, 1);
  pass(2.0);
  sidebar.emptyList().tryNowButton().click();
  EXPECT_EQ(world.refresher.refreshes, 2);
  sidebar.emptyList().serverAddressButton().click();
  EXPECT_EQ(world.application.serverAddressWindows, 1);
  for (int id = 1; id <= 30; ++id) world.addRink(id, "Rink");
  settle();
  settle();
  EXPECT_FALSE(sidebar.emptyList().isVisible());
  EXPECT_EQ(controller->window()->focusWidget(), &sidebar.rinkListView());
  EXPECT_EQ(sidebar.rinkListView().height(), 30 * 76) << "all of them can be reached";
}

TEST_F(MainWindowControllerTest, choosingARinkShowsItsWeekAndAsksForWhatIsDue) {
  addRinks();
  open();
  choose(1);
  EXPECT_EQ(description(), "Week of 3/15/26");
  EXPECT_EQ(week().chosenVenueID(), 7) << "the first in the order of display";
  EXPECT_EQ(ScheduleWorld::refresherOf(*rink).dueChecks, 1);
  EXPECT_EQ(rink->lastViewed, world.sim.world.now());
  choose(2);
  EXPECT_EQ(rink->weeklyVenueID, 7) << "a rink keeps what was chosen for it";
  EXPECT_EQ(week().chosenVenueID(), 1);
  choose(0);
  EXPECT_EQ(controller->currentRinkData(), nullptr);
}

TEST_F(MainWindowControllerTest, weeksAreTurnedWithinTheRinksOffer) {
  addRinks();
  open();
  choose(1);
  const std::pair<Qt::Key, const char*> steps[] = {
      {Qt::Key_Left, "Week of 3/8/26"},   {Qt::Key_Left, "Week of 3/8/26"},
      {Qt::Key_Right, "Week of 3/15/26"}, {Qt::Key_Right, "Week of 3/22/26"},
      {Qt::Key_Right, "Week of 3/29/26"}, {Qt::Key_Right, "Week of 3/29/26"}};
  for (const auto& [key, text] : steps) {
    QTest::keyClick(controller->window(), key);
    endGlide();
    EXPECT_EQ(description(), text);
    EXPECT_FALSE(week().isAwaitingData) << "a page that was turned to is drawn at once";
  }
  controller->gotoNow();
  EXPECT_EQ(controller->schedule().displayDate(), packedDate(2026, 3, 18));
  rink->lastWeek = packedDate(2026, 3, 8);
  rink->postNotification(kDateRangeChanged);
  settle();
  EXPECT_EQ(controller->schedule().displayDate(), packedDate(2026, 3, 14));
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
  endGlide();
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
  EXPECT_EQ(week().layout().grid().axis.endOfDay, 1470);
  controller->next();
  endGlide();
  EXPECT_EQ(week().layout().grid().axis.endOfDay, 1470) << "it never shrinks while the rink stays";
  choose(2);
  EXPECT_EQ(week().layout().grid().axis.endOfDay, 1440);
}

TEST_F(MainWindowControllerTest, theWindowGrowsForTheListAndShrinksBackByTheSame) {
  open();
  controller->toggleShowRinks();
  controller->toggleShowCalendar();
  Rect narrow = controller->window()->frame();
  narrow.width = 820.0;
  controller->window()->setFrame(narrow);
  settle();
  narrow = controller->window()->frame();
  controller->toggleShowRinks();
  settle();
  EXPECT_EQ(controller->window()->frame().width, 750.0 + 248.0);
  controller->toggleShowRinks();
  settle();
  EXPECT_EQ(controller->window()->frame(), narrow);
  controller->toggleShowCalendar();
  settle();
  EXPECT_EQ(controller->window()->frame().width, 750.0 + 184.0);
  controller->toggleShowCalendar();
  settle();
  EXPECT_EQ(controller->window()->frame(), narrow);
  EXPECT_FALSE(controller->rinkSidebar().isVisible() || controller->rinkSidebar().rinkListView().enabled);
}

TEST_F(MainWindowControllerTest, settingsComeBackInAnotherWindow) {
  addRinks();
  open();
  choose(1);
  controller->toggleShowRinks();
  PropertyList::Dictionary settings = controller->windowSettings();
  settings["fitVertically"] = false;
  const auto second = MainWindowController::create(world.context);
  second->restoreSettings(settings, FromAnotherDocument::yes);
  second->showWindow();
  settle();
  EXPECT_EQ(second->currentRinkData(), rink);
  EXPECT_FALSE(second->sidebars().showRinks);
  EXPECT_DOUBLE_EQ(
      dynamic_cast<WeeklyScheduleView&>(*second->schedule().currentPage()).layout().pointsPerMinute(), 1.5);
  EXPECT_TRUE(second->windowSettings() == settings);
  second->window()->close();
  controller->restoreSettings({{"rinkID", 99}, {"showRinks", false}}, FromAnotherDocument::no);
  EXPECT_TRUE(controller->sidebars().showRinks) << "a window without a rink shows the list";
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
