#include "foundation/AutoSaveController.h"

#include <gtest/gtest.h>

#include "simulation/ports/SimWorld.h"

namespace tarvel {
namespace {

class AutoSaveControllerTest : public testing::Test, public AutoSaveDelegate {
 protected:
  void autoSave() override {
    saves.push_back(world.seconds());
    if (duringSave) duringSave();
  }
  /// A change at that many seconds from the start.
  void changeAt(double seconds) {
    world.runFor(seconds - world.seconds());
    controller->changed();
    world.runUntilIdle();
  }

  SimWorld world;
  std::vector<double> saves;
  std::function<void()> duringSave;
  std::unique_ptr<AutoSaveController> controller =
      std::make_unique<AutoSaveController>(world.mainLoop(), *this, "app controller");
};

TEST_F(AutoSaveControllerTest, Deadlines) {
  struct {
    std::vector<double> changes;
    std::vector<double> saves;
  } const cases[] = {{{0}, {60}},
                     {{0, 45}, {60}},
                     {{0, 46}, {76}},
                     {{0, 59, 70}, {89}},
                     {{0, 50, 72, 80}, {90}},
                     {{0, 50, 72, 80, 81, 88}, {98}},
                     {{0, 50, 80.5}, {80, 140.5}}};
  for (const auto& [changes, expected] : cases) {
    const double start = world.seconds();
    for (const double change : changes) changeAt(start + change);
    world.runFor(200);
    ASSERT_EQ(saves.size(), expected.size()) << testing::PrintToString(changes);
    for (std::size_t i = 0; i < saves.size(); ++i) EXPECT_NEAR(saves[i] - start, expected[i], 1e-6);
    EXPECT_FALSE(controller->isWaiting());
    saves.clear();
  }
}

TEST_F(AutoSaveControllerTest, NoSaveAfterFinishOrAfterTheEnd) {
  changeAt(0);
  controller->finish();
  changeAt(1);
  EXPECT_FALSE(controller->isWaiting());
  controller->changed();
  controller.reset();
  world.runFor(200);
  EXPECT_TRUE(saves.empty());
}

TEST_F(AutoSaveControllerTest, TheDelegateMayEndTheControllerWhileItSaves) {
  duringSave = [this] { controller.reset(); };
  changeAt(0);
  world.runFor(200);
  EXPECT_EQ(saves.size(), 1U);
  EXPECT_EQ(world.pendingTimers(), 0U);
}

}  // namespace
}  // namespace tarvel
