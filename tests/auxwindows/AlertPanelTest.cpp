#include <QPushButton>
#include <QTest>

#include "auxwindows/AlertPanelLayout.h"
#include "auxwindows/AlertPanelWindowController.h"
#include "schedule/ScheduleWorld.h"

namespace tarvel::test {
namespace {

TEST(AlertPanelLayoutTest, Sizes) {
  EXPECT_EQ(alertMessageSize({}), (Size{250, 50}));
  EXPECT_EQ(alertMessageSize(Size{40, 30}), (Size{250, 30}));
  EXPECT_EQ(alertMessageSize(Size{600, 900}), (Size{600, 900}));
  EXPECT_EQ(alertPanelSize({250, 50}, 450, {}), (Size{400, 155}));
  EXPECT_EQ(alertPanelSize({250, 50}, 450, 240.0), (Size{400, 155})) << "the buttons fit";
  EXPECT_EQ(alertPanelSize({250, 50}, 450, -100.0), (Size{600, 155})) << "the buttons need more";
  EXPECT_EQ(alertPanelFrame({400, 200}, {100, 50, 1000, 800}), (Rect{400, 500, 400, 200}));
}

class AlertPanelTest : public testing::Test {
 protected:
  ScheduleWorld world_;
  AlertPanelWindowController panel_{world_.context};
};

TEST_F(AlertPanelTest, FitsItsTextsAndKeepsItsButtonsAtTheRight) {
  const std::string longText(2000, 'm');
  const std::tuple<const char*, std::string, const char*, double> cases[] = {
      {"Title", "Text", "Title\n\nText", 400},
      {"", "Text", "Text", 400},
      {"Title", "", "Title", 400},
      {"", "", "", 400},
      {"Title", longText, nullptr, 0},
  };
  for (const auto& [message, info, shown, panelWidth] : cases) {
    AlertPanelWindowController panel(world_.context);
    panel.message = message;
    panel.info = info;
    panel.badge = AlertBadge::warning;
    panel.addButton("OK");
    panel.addButton("Another");
    panel.present({});
    QApplication::processEvents();
    const Rect frame = panel.window()->frame();
    const Rect screen = panel.window()->screenFrame();
    const QRect text = panel.messageView().geometry();
    EXPECT_TRUE(panel.badgeView().isVisible());
    EXPECT_NEAR(frame.x + frame.width / 2, screen.x + screen.width / 2, 1.0);
    EXPECT_EQ(frame.width, std::max(400.0, text.width() + 150.0));
    EXPECT_EQ(frame.height, text.height() + 105.0);
    const QPushButton& first = *panel.buttons()[0];
    const QPushButton& second = *panel.buttons()[1];
    EXPECT_EQ(first.geometry().right() + 1, panel.window()->width() - 20);
    EXPECT_GE(first.width(), 80);
    EXPECT_EQ(second.geometry().right() + 1, first.x() - 8);
    EXPECT_LE(text.bottom(), first.y());
    if (shown) {
      EXPECT_EQ(panel.messageView().text().plainText(), shown);
      EXPECT_EQ(frame.width, panelWidth);
    } else {
      EXPECT_LE(text.width(), 600);
      EXPECT_GT(text.height(), 300);
    }
    setTextScale(1.5);
    QApplication::processEvents();
    const AlertMessageView& grown = panel.messageView();
    EXPECT_GE(grown.height(), boundingRect(grown.text(), {double(grown.width()), 0.0}, TextFit::wrap).height);
    EXPECT_EQ(panel.window()->frame().height, grown.height() + 105.0);
    setTextScale(1.0);
  }
}

TEST_F(AlertPanelTest, TellsWhichButtonWasPressedUntilItCloses) {
  panel_.message = "Title";
  for (const char* title : {"One", "Two", "Three"}) panel_.addButton(title);
  std::vector<int> pressed;
  panel_.present([&](int tag) {
    pressed.push_back(tag);
    if (tag == 2) panel_.window()->close();
  });
  for (const std::size_t i : {1U, 0U, 2U, 1U}) panel_.buttons()[i]->click();
  EXPECT_EQ(pressed, (std::vector<int>{1, 0, 2}));
  ASSERT_EQ(world_.application.removed.size(), 1U);
  EXPECT_EQ(world_.application.removed[0].first, &panel_);
  AlertPanelWindowController unanswered(world_.context);
  unanswered.addButton("One");
  unanswered.present([&](int tag) { pressed.push_back(tag); });
  QApplication::setActiveWindow(unanswered.window());
  QTest::keyClick(unanswered.window(), Qt::Key_Escape);
  EXPECT_EQ(world_.application.removed.size(), 2U);
  EXPECT_EQ(pressed.size(), 3U);
}

}  // namespace
}  // namespace tarvel::test
