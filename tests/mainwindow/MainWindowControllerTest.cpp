#include <QTest>

#include "MainWindowFixture.h"
#include "NoticesWorld.h"

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
  openWithRink();
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
  openWithRink();
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
  openWithRink();
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
  openWithRink();
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
  openWithRink();
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

using test::notice;
using MainWindowPanesTest = test::MainWindowFixture;

TEST_F(MainWindowPanesTest, TheBannerFollowsTheChosenRinkAndGoesWithAnothersNews) {
  addRinks();
  open();
  NoticeBanner& banner = controller->noticeBanner();
  rink->adoptNotices({test::ScheduleWorld::kFileDate, {notice(1), notice(2)}});
  choose(1);
  EXPECT_TRUE(banner.bannerVisible());
  QTest::mouseClick(&banner.view(), Qt::LeftButton, {}, {40, 20});
  settle();
  EXPECT_EQ(controller->currentPaneKind(), MainWindowPane::notices);
  QTest::mouseClick(&banner.dismissButton(), Qt::LeftButton);
  settle();
  EXPECT_FALSE(banner.bannerVisible());
  EXPECT_EQ(rink->dismissedNotices.size(), 1U) << "the one on show";
  rink->postNotification(kNoticesChanged);
  settle();
  EXPECT_TRUE(banner.bannerVisible()) << "the other one is left";
  world.dataModel.rinkData(2)->postNotification(kNoticesChanged);
  settle();
  EXPECT_FALSE(banner.bannerVisible());
}

TEST_F(MainWindowPanesTest, CommandsStandAsThePaneLetsThem) {
  addRinks();
  open();
  const auto check = [this](MainWindowPane pane, bool print, const char* when) {
    controller->selectPaneKind(pane);
    const auto enabled = [&](const char* action) { return controller->validateMenuItem({action})->enabled; };
    EXPECT_EQ(enabled("printWindow:"), print) << when;
    for (const char* other : {"prev:", "next:", "gotoNow:", "increaseTextSize:", "toggleShowCalendar:"})
      EXPECT_TRUE(enabled(other)) << when;
    EXPECT_EQ(controller->validateMenuItem({"selectPane:", static_cast<int>(pane)})->checked, true) << when;
  };
  check(MainWindowPane::schedule, false, "without a rink");
  const PackedDate shown = controller->schedule().displayDate();
  for (const char* each : {"prev:", "next:", "gotoNow:"}) controller->performCommand({each});
  EXPECT_EQ(controller->schedule().displayDate(), shown) << "without a rink they do nothing";
  choose(1);
  world.dataModel.rinkInfo(1)->websiteUrl = "https://a.test";
  controller->performCommand({"visitWebsite:"});
  EXPECT_EQ(world.workspace.opened, std::vector<std::string>{"https://a.test"}) << "from any pane";
  check(MainWindowPane::schedule, true, "schedule");
  check(MainWindowPane::photos, false, "photos");
  check(MainWindowPane::notices, false, "notices");
  check(MainWindowPane::info, false, "info");
  EXPECT_FALSE(controller->validateMenuItem({"quitApplication:"})) << "not one of the window's";
  controller->performCommand({"selectPane:", 1});
  EXPECT_EQ(controller->currentPaneKind(), MainWindowPane::schedule);
  controller->performCommand({"next:"});
  endGlide();
  EXPECT_EQ(description(), "Week of 3/22/26");
}

}  // namespace
}  // namespace tarvel
