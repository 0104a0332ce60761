#include "auxwindows/ClockWindowController.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "schedule/ScheduleWorld.h"

namespace tarvel {
namespace {

/// A rink's part of the clock: it notes what it is told.
struct Ticks : TimeDelegateProtocol {
  void updateTimeWithNow(Instant now) override { last = now; }
  Instant last;
};

class ClockWindowControllerTest : public testing::Test {
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
  void settle() {
    world.runUntilIdle();
    QApplication::processEvents();
  }
  double offset() const { return world.sim.pretendTime.offset(); }

  test::ScheduleWorld world;
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

}  // namespace
}  // namespace tarvel
