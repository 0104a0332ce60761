#include "ui/DataLoadingWindowController.h"

#include <gtest/gtest.h>

#include "LoopSupport.h"

namespace tarvel {
namespace {

class BareController : public DataLoadingWindowController {
 public:
  explicit BareController(NotificationCenter& center)
      : DataLoadingWindowController(std::make_unique<Window>(), center) {}
  std::string className() const override { return "BareController"; }
};

class CountingController final : public BareController {
 public:
  using BareController::BareController;
  void loadData() override {
    isAwaitingData = false;
    if (isClosing) return;
    ++loads;
  }
  int loads = 0;
};

TEST(DataLoadingWindowController, LoadsOnceForManyChangesHoweverTheWindowStands) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  CountingController controller(center);
  controller.needsData();
  controller.needsData();
  EXPECT_EQ(controller.loads, 0);
  test::runUntilIdle(loop);
  EXPECT_EQ(controller.loads, 1);
  controller.needsData();
  controller.isClosing = true;
  test::runUntilIdle(loop);
  EXPECT_EQ(controller.loads, 1);
  controller.needsData();
  EXPECT_FALSE(controller.isAwaitingData);
  EXPECT_FALSE(controller.isAwaitingUpdates);
}

TEST(DataLoadingWindowController, OwnsItsWindowAndIsItsDelegate) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  const auto before = Window::liveCount();
  auto controller = std::make_unique<CountingController>(center);
  EXPECT_EQ(controller->window()->delegate(), controller.get());
  EXPECT_EQ(Window::liveCount(), before + 1);
  controller->showWindow();
  EXPECT_EQ(Window::orderedWindows().front(), controller->window());
  bool heard = false;
  QObject::connect(controller->window(), &Window::resignedMain, [&] { heard = true; });
  controller->needsData();
  controller.reset();
  EXPECT_FALSE(heard) << "the controller's handlers may hold what is gone by now";
  EXPECT_EQ(Window::liveCount(), before);
  EXPECT_TRUE(Window::orderedWindows().empty());
  test::runUntilIdle(loop);
}

TEST(DataLoadingWindowControllerDeathTest, StagesThatNobodySuppliesStopTheProgram) {
  QtRunLoop loop;
  NotificationCenter center(loop);
  BareController bare(center);
  bare.isAwaitingData = true;
  EXPECT_DEATH(bare.performUpdates(), "Fatal error");
  for (bool CountingController::*stage :
       {&CountingController::isAwaitingData2, &CountingController::isAwaitingFilter}) {
    CountingController controller(center);
    controller.*stage = true;
    EXPECT_DEATH(controller.performUpdates(), "Fatal error");
  }
}

}  // namespace
}  // namespace tarvel
