#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include "auxwindows/ClockWindowController.h"
#include "auxwindows/DebugWindowController.h"
#include "auxwindows/InstanceTable.h"
#include "schedule/ScheduleWorld.h"

namespace tarvel::test {
namespace {

/// A rink's part of the clock: it notes what it is told.
struct Ticks : TimeDelegateProtocol {
  void updateTimeWithNow(Instant now) override { last = now; }
  Instant last;
};

class ClockWindowControllerTest : public ScheduleWorldTest {
 protected:
  ClockWindowControllerTest() {
    world.clockTimer.start();
    world.clockTimer.addTimeDelegate(ticks);
    controller = ClockWindowController::create(world.context);
    controller->showWindow();
    settle();
  }
  ~ClockWindowControllerTest() override {
    world.clockTimer.removeTimeDelegate(ticks);
    controller.reset();
    world.clockTimer.terminate();
    settle();
  }
  double offset() const { return world.sim.pretendTime.offset(); }

  Ticks ticks;
  std::unique_ptr<ClockWindowController> controller;
};

TEST_F(ClockWindowControllerTest, PretendTimeTicksAtOnceAndSurvivesTheWindow) {
  constexpr double kWeek = 7 * 86'400.0;
  ClockPicker& picker = controller->datePicker();
  EXPECT_FALSE(picker.isEnabled());
  EXPECT_TRUE(controller->realTimeButton().isChecked());
  world.sim.world.runFor(5.0);
  EXPECT_EQ(picker.dateValue(), world.sim.world.now()) << "the picker follows the clock";
  EXPECT_EQ(offset(), 0.0) << "and what the clock sets isn't taken for the user's";

  controller->pretendTimeButton().click();
  EXPECT_TRUE(picker.isEnabled());
  picker.setDateTime(picker.dateTime().addDays(7));
  EXPECT_EQ(offset(), kWeek);
  settle();
  EXPECT_EQ(ticks.last, world.sim.world.now() + kWeek) << "no second passes before it is seen";
  controller->realTimeButton().click();
  EXPECT_EQ(offset(), 0.0);
  settle();
  EXPECT_EQ(ticks.last, world.sim.world.now());
  EXPECT_EQ(picker.dateValue(), world.sim.world.now());
  controller->pretendTimeButton().click();
  EXPECT_EQ(offset(), kWeek) << "the last offset comes back";

  controller->window()->performClose();
  ASSERT_EQ(world.application.removed.size(), 1U);
  EXPECT_EQ(offset(), kWeek) << "and stays when the window has gone";
  const Instant shown = picker.dateValue();
  world.sim.world.runFor(5.0);
  EXPECT_EQ(picker.dateValue(), shown) << "a closed window is no face any more";
}

TEST_F(ClockWindowControllerTest, NoMomentBeforeSchedulesBeginCanBeChosen) {
  controller->setPretend(true);
  ClockPicker& picker = controller->datePicker();
  picker.setDateTime(QDateTime(QDate(1980, 1, 1), QTime(12, 0)));
  EXPECT_GT(picker.dateValue().seconds, 0.0);
}

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
  const std::pair<Qt::Key, const char*> steps[] = {
      {Qt::Key_Left, "0 0 1"}, {Qt::Key_Left, "0 0 1"}, {Qt::Key_Right, "1 1 0"}, {Qt::Key_A, "1 1 0"}};
  QApplication::setActiveWindow(debug_.window());
  for (const auto& [key, expected] : steps) {
    QTest::keyClick(debug_.window(), key);
    EXPECT_EQ(state(), expected);
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
