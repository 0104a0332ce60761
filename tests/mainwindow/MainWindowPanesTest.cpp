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
    bool print, turn, now;
  };
  const auto check = [this](const Case& c, const char* when) {
    controller->selectPaneKind(c.pane);
    const auto enabled = [&](const char* action) { return controller->validateMenuItem({action})->enabled; };
    EXPECT_EQ(enabled("printWindow:"), c.print) << when;
    EXPECT_EQ(enabled("next:"), c.turn) << when;
    EXPECT_EQ(enabled("gotoNow:"), c.now) << when;
    EXPECT_EQ(controller->validateMenuItem({"selectPane:", static_cast<int>(c.pane)})->checked, true) << when;
  };
  check({MainWindowPane::schedule, false, false, false}, "without a rink");
  choose(1);
  check({MainWindowPane::schedule, true, true, true}, "schedule");
  check({MainWindowPane::photos, false, true, false}, "photos");
  check({MainWindowPane::notices, false, false, false}, "notices");
  check({MainWindowPane::info, false, false, false}, "info");
  EXPECT_FALSE(controller->validateMenuItem({"quitApplication:"})) << "not one of the window's";
  controller->performCommand({"selectPane:", 1});
  EXPECT_EQ(controller->currentPaneKind(), MainWindowPane::schedule);
  controller->performCommand({"next:"});
  endGlide();
  EXPECT_EQ(description(), "Week of 3/22/26");
}

}  // namespace
}  // namespace tarvel
