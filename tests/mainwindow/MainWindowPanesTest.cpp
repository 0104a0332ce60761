#include <gtest/gtest.h>

#include <QTest>

#include "MainWindowFixture.h"
#include "NoticesWorld.h"

namespace tarvel {
namespace {

using test::notice;
using MainWindowPanesTest = test::MainWindowFixture;

TEST_F(MainWindowPanesTest, TheBannerFollowsTheChosenRinkAndGoesWithAnothersNews) {
  addRinks();
  open();
  NoticeBanner& banner = controller->noticeBanner();
  rink->adoptNotices({test::ScheduleWorld::kFileDate, {notice(1), notice(2)}});
  choose(1);
  EXPECT_TRUE(banner.bannerVisible());
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

TEST_F(MainWindowPanesTest, AClickOnTheBannerOpensItsNotice) {
  addRinks();
  open();
  rink->adoptNotices({test::ScheduleWorld::kFileDate, {notice(1), notice(2)}});
  choose(1);
  settle();
  QTest::mouseClick(&controller->noticeBanner().view(), Qt::LeftButton, {}, {40, 20});
  settle();
  EXPECT_EQ(controller->currentPaneKind(), MainWindowPane::notices);
}

TEST_F(MainWindowPanesTest, CommandsStandAsThePaneLetsThem) {
  addRinks();
  open();
  struct Case {
    MainWindowPane pane;
    bool print;
  };
  const auto check = [this](const Case& c, const char* when) {
    controller->selectPaneKind(c.pane);
    const auto enabled = [&](const char* action) { return controller->validateMenuItem({action})->enabled; };
    EXPECT_EQ(enabled("printWindow:"), c.print) << when;
    for (const char* other : {"prev:", "next:", "gotoNow:", "increaseTextSize:", "toggleShowCalendar:"}) {
      EXPECT_TRUE(enabled(other)) << when;
    }
    EXPECT_EQ(controller->validateMenuItem({"selectPane:", static_cast<int>(c.pane)})->checked, true) << when;
  };
  check({MainWindowPane::schedule, false}, "without a rink");
  const PackedDate shown = controller->schedule().displayDate();
  for (const char* each : {"prev:", "next:", "gotoNow:"}) controller->performCommand({each});
  EXPECT_EQ(controller->schedule().displayDate(), shown) << "without a rink they do nothing";
  choose(1);
  world.dataModel.rinkInfo(1)->websiteUrl = "https://a.test";
  controller->performCommand({"visitWebsite:"});
  EXPECT_EQ(world.workspace.opened, std::vector<std::string>{"https://a.test"}) << "from any pane";
  check({MainWindowPane::schedule, true}, "schedule");
  check({MainWindowPane::photos, false}, "photos");
  check({MainWindowPane::notices, false}, "notices");
  check({MainWindowPane::info, false}, "info");
  EXPECT_FALSE(controller->validateMenuItem({"quitApplication:"})) << "not one of the window's";
  controller->performCommand({"selectPane:", 1});
  EXPECT_EQ(controller->currentPaneKind(), MainWindowPane::schedule);
  controller->performCommand({"next:"});
  endGlide();
  EXPECT_EQ(description(), "Week of 3/22/26");
}

}  // namespace
}  // namespace tarvel
