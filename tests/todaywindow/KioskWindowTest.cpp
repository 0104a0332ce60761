#include "todaywindow/KioskWindow.h"

#include "TodayFixture.h"

namespace tarvel {
namespace {

using Names = std::vector<std::string>;

TEST(KioskScreens, AreTakenFromTheRightAndTheMainOneLast) {
  const auto screen = [](const char* name, double x, bool isMain = false) {
    return KioskScreen{name, {x, 0, 1920, 1080}, isMain};
  };
  const std::pair<std::vector<KioskScreen>, Names> cases[] = {
      {{screen("a", -1920), screen("b", 0, true), screen("c", 1920)}, {"c", "a", "b"}},
      {{screen("a", 0), screen("b", 1920, true)}, {"a", "b"}},
      {{screen("a", 0, true), screen("b", 1920)}, {"b", "a"}},
      {{screen("a", 0, true)}, {"a"}},
      {{screen("a", 0), screen("b", 0)}, {"a", "b"}},
      {{}, {}},
  };
  for (const auto& [screens, order] : cases) {
    Names names;
    for (const KioskScreen& each : inKioskOrder(screens)) names.push_back(each.name);
    EXPECT_EQ(names, order);
  }
}

class KioskWindowTest : public test::TodayFixture {};

TEST_F(KioskWindowTest, TakesAWholeScreenAndHoldsItUntilItCloses) {
  application.kiosk = true;
  const QRect right(3840, 0, 1920, 1080);
  const auto first = open();
  const auto& window = dynamic_cast<const KioskWindow&>(*first->window());
  EXPECT_EQ(window.kioskScreen(), "RIGHT");
  EXPECT_TRUE(window.isFullScreen());
  EXPECT_TRUE(window.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_TRUE(window.windowFlags() & Qt::WindowStaysOnTopHint);
  EXPECT_EQ(window.geometry(), right);
  EXPECT_FALSE(first->views().closeWindowButton().isHidden());
  first->window()->setFrame({10, 10, 700, 500});
  settle();
  EXPECT_EQ(window.geometry(), right) << "the screen wins over any frame";

  auto second = std::make_unique<KioskWindow>(application);
  KioskWindow third(application);
  KioskWindow fourth(application);
  EXPECT_EQ(KioskWindow::screensInUse(), (Names{"RIGHT", "MIDDLE", "LEFT"}));
  EXPECT_EQ(fourth.kioskScreen(), std::nullopt) << "a window like any other";
  EXPECT_FALSE(fourth.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(application.inhibitor.holds, 1);
  first->window()->performClose();
  second.reset();
  EXPECT_EQ(KioskWindow::screensInUse(), Names{"LEFT"});
  EXPECT_EQ(application.inhibitor.holds, 1) << "one still stands";
  EXPECT_EQ(application.removed.back().second, SaveFrame::no);
  application.kiosk = false;
  third.performClose();
  EXPECT_EQ(application.inhibitor.holds, 0);
  KioskWindow plain(application);
  EXPECT_EQ(plain.kioskScreen(), std::nullopt);
}

TEST_F(KioskWindowTest, RestrictedClosesWithTheAltKeyAlone) {
  application.kiosk = true;
  KioskWindow window(application);
  window.restrictClosing = true;
  window.show();
  window.performClose();
  EXPECT_TRUE(window.isVisible());
  window.restrictClosing = false;
  window.performClose();
  EXPECT_FALSE(window.isVisible());
}

TEST_F(KioskWindowTest, HidesThePointerWhileAKioskWindowIsMain) {
  const auto plain = open();
  EXPECT_NE(application.cursorHiding, CursorHiding::on);
  application.kiosk = true;
  const auto kiosk = open();
  EXPECT_EQ(application.cursorHiding, CursorHiding::on);
  plain->window()->makeKeyAndOrderFront();
  settle();
  application.kiosk = false;
  kiosk->window()->performClose();
  EXPECT_EQ(application.cursorHiding, CursorHiding::off);
}

}  // namespace
}  // namespace tarvel
