#pragma once
#include "mainwindow/MainWindowController.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/ScheduleWorld.h"
#include "schedule/WeeklyScheduleView.h"

namespace tarvel::test {

/// A main window over the model of a simulated machine. It is Wednesday, 2026-03-18, 10:00.
class MainWindowFixture : public ScheduleWorldTest {
 protected:
  ~MainWindowFixture() override {
    if (!controller->isClosing) controller->window()->close();
  }

  /// Rinks 1 and 2 in use; rink 1 has two venues.
  void addRinks() {
    world.addRink(1, "North");
    world.addRink(2, "South");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Far", 2), ScheduleWorld::venue(7, "Near", 1)});
    world.openRink(2, {ScheduleWorld::venue(1, "Only", 1)});
    settle();
  }
  void open() {
    controller->restoreSettings({{"currentPaneKind", 1}}, FromAnotherDocument::no);
    controller->showWindow();
    settle();
  }
  void choose(std::int64_t rinkID) {
    controller->rinkSidebar().rinkListView().selectRink(world.dataModel.rinkInfo(rinkID));
    settle();
  }
  void openWithRink() {
    addRinks();
    open();
    choose(1);
  }
  /// Time passes for the rinks as their clock ticks.
  void pass(double seconds) {
    world.sim.world.runFor(seconds);
    for (const auto& each : world.dataModel.recentRinks) each->updateTimeWithNow(world.sim.pretendTime.now());
    settle();
  }
  SchedulePane& pane() { return controller->schedule().pane(); }
  WeeklyScheduleView& week() {
    return dynamic_cast<WeeklyScheduleView&>(*controller->schedule().currentPage());
  }
  DailyScheduleView& day() { return dynamic_cast<DailyScheduleView&>(*controller->schedule().currentPage()); }
  std::string description() { return pane().description(); }
  /// A turn by button or key ends now.
  void endGlide() {
    pane().schedulePagingView().finishGlide();
    settle();
  }
  ScheduleSidebar& sidebar() { return pane().scheduleSidebarView(); }

  std::shared_ptr<RinkData> rink;
  std::unique_ptr<MainWindowController> controller = MainWindowController::create(world.context);
};

}  // namespace tarvel::test
