#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "auxwindows/TarvelURLWindowController.h"
#include "schedule/ScheduleWorld.h"

namespace tarvel::test {
namespace {

class TarvelURLWindowTest : public testing::Test {
 protected:
  TarvelURLWindowTest() {
    window_.showWindow();
    QApplication::setActiveWindow(window_.window());
  }
  void type(const QString& text) {
    window_.urlField().setFocus();
    window_.urlField().selectAll();
    QTest::keyClick(&window_.urlField(), Qt::Key_Delete);
    QTest::keyClicks(&window_.urlField(), text);
  }
  void tab() { QTest::keyClick(&window_.urlField(), Qt::Key_Tab); }
  std::string server() const { return world_.dataModel.tarvelServerURL; }
  QString shown() const { return window_.urlField().text(); }
  bool isBlankTold() const {
    EXPECT_EQ(window_.messageField().text().isEmpty(), window_.enterButton().isEnabled());
    return window_.messageField().text() == "URL may not be blank";
  }

  ScheduleWorld world_;
  const std::string before_ = server();
  TarvelURLWindowController window_{world_.context};
};

TEST_F(TarvelURLWindowTest, MessagesFollowTheCommittedAddress) {
  EXPECT_EQ(shown().toStdString(), before_);
  type("   ");
  EXPECT_FALSE(isBlankTold()) << "while typing the committed value counts";
  EXPECT_EQ(window_.tmpServerURL(), "   ");
  tab();
  EXPECT_TRUE(isBlankTold());
  EXPECT_EQ(shown(), "");
  type(" http://other ");
  EXPECT_TRUE(isBlankTold());
  tab();
  EXPECT_FALSE(isBlankTold());
  EXPECT_EQ(shown(), "http://other");
  type("http://other  ");
  tab();
  EXPECT_EQ(shown(), "http://other") << "an address that is the same loses its blanks, too";
  EXPECT_EQ(server(), before_);
}

TEST_F(TarvelURLWindowTest, OnlyEnterTakesTheAddressOver) {
  enum class By { enterButton, returnKey, cancelButton, escapeKey };
  // taken: null for that of before
  const std::tuple<const char*, By, const char*, bool> cases[] = {
      {" http://new/ ", By::enterButton, "http://new/", true},
      {"http://new", By::returnKey, "http://new", true},
      {"http://new", By::cancelButton, nullptr, true},
      {"http://new", By::escapeKey, nullptr, true},
      {"http://n\x01\nw\uFFFE ", By::enterButton, "http://nw", true},
      {"  ", By::returnKey, nullptr, false},
      {"no address", By::returnKey, "no address", true},
  };
  for (const auto& [typed, by, taken, closes] : cases) {
    ScheduleWorld world;
    TarvelURLWindowController window(world.context);
    window.showWindow();
    QApplication::setActiveWindow(window.window());
    window.urlField().selectAll();
    window.urlField().insert(QString::fromUtf8(typed));
    if (by == By::enterButton) window.enterButton().click();
    if (by == By::returnKey) QTest::keyClick(&window.urlField(), Qt::Key_Return);
    if (by == By::cancelButton) window.cancelButton().click();
    if (by == By::escapeKey) QTest::keyClick(&window.urlField(), Qt::Key_Escape);
    EXPECT_EQ(world.dataModel.tarvelServerURL, taken ? taken : before_) << typed;
    EXPECT_EQ(!world.application.removed.empty(), closes) << typed;
    EXPECT_EQ(world.refresher.refreshes, taken ? 1 : 0) << typed;
  }
  window_.enterButton().click();
  EXPECT_EQ(world_.application.removed.size(), 1U);
  EXPECT_EQ(world_.refresher.refreshes, 0) << "the same address refreshes nothing";
}

}  // namespace
}  // namespace tarvel::test
