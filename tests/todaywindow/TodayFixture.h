#pragma once
#include "platform/ScreenInhibitor.h"
#include "schedule/ScheduleWorld.h"
#include "todaywindow/KioskWindow.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel::test {

/// Counts how often the screens are kept from blanking.
class CountingInhibitor : public ScreenInhibitor {
 public:
  std::unique_ptr<Hold> inhibit(const std::string&) override {
    struct Counted : Hold {
      explicit Counted(int& count) : holds(count) { ++holds; }
      ~Counted() override { --holds; }
      int& holds;
    };
    return std::make_unique<Counted>(holds);
  }
  int holds = 0;
};

class KioskApplication : public RecordingApplication {
 public:
  bool kioskMode() const override { return kiosk; }
  void setCursorHiding(CursorHiding hiding) override { cursorHiding = hiding; }
  ScreenInhibitor* screenInhibitor() override { return &inhibitor; }

  bool kiosk = false;
  std::optional<CursorHiding> cursorHiding;
  CountingInhibitor inhibitor;
};

/// Today windows over the model of a simulated machine. It is Wednesday, 2026-03-18, 10:00. Venue 4 of rink 1
/// has a public session at 10:00, a resurfacing at 12:00, freestyle from 12:15 to 13:00, and on its late
/// night a rental from 22:00 to 1:30.
class TodayFixture : public ScheduleWorldTest {
 protected:
  TodayFixture() {
    world.addRink(1, "North");
    rink = world.openRink(1, {ScheduleWorld::venue(4, "Near", 1), ScheduleWorld::venue(7, "Far", 2)});
    week(4)->adopt({{},
                    {{SessionKind::publicSession, 3, 600, 120, "", ""},
                     {SessionKind::resurface, 3, 720, 15, "", ""},
                     {SessionKind::freestyle, 3, 735, 45, "", ""},
                     {SessionKind::rental, 3, 1320, 210, "", ""},
                     {SessionKind::publicSession, 4, 420, 60, "", ""},
                     // Whatever a later day has at its end says nothing of the night before it.
                     {SessionKind::rental, 4, 1320, 240, "", ""}}});
    settle();
  }

  std::unique_ptr<TodayWindowController> open(PropertyList::Dictionary settings = {}) {
    auto controller = TodayWindowController::create(context);
    settings["rinkID"] = 1;
    controller->restoreSettings(settings, FromAnotherDocument::no);
    controller->showWindow();
    controller->window()->resize(1000, 600);
    settle();
    tick();
    return controller;
  }
  std::shared_ptr<WeeklySchedule> week(std::int64_t venueID) {
    return rink->venue(venueID)->weeklySchedule(packedDate(2026, 3, 15));
  }
  void tick() {
    rink->updateTimeWithNow(world.sim.pretendTime.now());
    settle();
  }
  /// Minute by minute, as the clock ticks.
  void passMinutes(int minutes) {
    for (int i = 0; i < minutes; ++i) {
      world.sim.world.runFor(60.0);
      tick();
    }
  }
  /// The clock jumps to that minute after Wednesday's midnight.
  void jumpTo(std::int64_t minute) {
    world.sim.world.sleepMachine(ScheduleWorld::kStart + 60.0 * static_cast<double>(minute - 600) -
                                 world.sim.world.now());
    tick();
  }

  KioskApplication application;
  WindowContext context{world.sim.services, world.dataModel, *world.errorLog, world.clockTimer,
                        world.workspace,    world.census,    application,     world.sounds};
  std::shared_ptr<RinkData> rink;
};

}  // namespace tarvel::test
