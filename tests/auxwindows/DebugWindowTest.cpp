#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include "auxwindows/DebugWindowController.h"
#include "auxwindows/InstanceTable.h"
#include "schedule/ScheduleWorld.h"

namespace tarvel::test {
namespace {

std::vector<QString> texts(const std::vector<Message>& rows) {
  std::vector<QString> result;
  for (const Message& row : rows) result.push_back(row.text);
  return result;
}

TEST(InstanceTableTest, RowsOfCounts) {
  const std::vector<CountedGroup> groups{
      {"Model", {{"Item", [] { return std::int64_t{1234}; }}, {"Gone", [] { return std::int64_t{0}; }}}},
      {"Sheet Controllers", {}},
  };
  EXPECT_EQ(texts(memoryRows(groups)),
            (std::vector<QString>{"", "Model", "     1,234  Item", "", "Sheet Controllers"}));
}

class DebugWindowTest : public testing::Test {
 protected:
  ScheduleWorld world_;
  DebugWindowController debug_{world_.context};
};

TEST_F(DebugWindowTest, StepsThroughItsReports) {
  const auto state = [this] {
    return QString("%1 %2 %3")
        .arg(debug_.reportIndex())
        .arg(debug_.prevButton().isEnabled())
        .arg(debug_.nextButton().isEnabled());
  };
  debug_.window()->setWindowTitle("Debug \"it\"");
  debug_.showWindow();
  EXPECT_EQ(state(), "0 0 0");
  debug_.generateButton().click();
  EXPECT_EQ(state(), "1 1 0");
  const auto info = texts(debug_.observersLogView().messages());
  EXPECT_EQ(info, (std::vector<QString>{"", "Observers", "", "Windows", "   \"Debug \"it\"\""}));
  const struct {
    Qt::Key key;
    const char* state;
  } steps[] = {
      {Qt::Key_Left, "0 0 1"}, {Qt::Key_Left, "0 0 1"}, {Qt::Key_Right, "1 1 0"}, {Qt::Key_A, "1 1 0"}};
  QApplication::setActiveWindow(debug_.window());
  for (const auto& step : steps) {
    QTest::keyClick(debug_.window(), step.key);
    EXPECT_EQ(state(), step.state);
  }
}

TEST_F(DebugWindowTest, KeepsTheDividersPlace) {
  debug_.window()->resize(900, 500);
  debug_.showWindow();
  for (const auto& [asked, taken] : {std::pair{420.0, 420.0}, {100.0, 300.0}, {5000.0, 900.0 - 1 - 250}}) {
    debug_.restoreSettings({{"leftWidth", asked}}, FromAnotherDocument::no);
    EXPECT_EQ(realAt(debug_.windowSettings(), "leftWidth"), taken);
  }
  debug_.restoreSettings({{"leftWidth", 420.0}}, FromAnotherDocument::no);
  debug_.window()->resize(1000, 500);
  EXPECT_EQ(debug_.splitView().sizes().front(), 420);
  debug_.window()->resize(600, 500);
  EXPECT_EQ(debug_.splitView().sizes().back(), 250);
}

}  // namespace
}  // namespace tarvel::test
