#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>

#include "schedule/ScheduleTestOwner.h"
#include "schedule/ScheduleWorld.h"
#include "schedule/WeeklyScheduleView.h"
#include "todaywindow/TodayWindowController.h"
#include "ui/Icons.h"
#include "ui/Window.h"

/// What views do whose changes a screen reader would be told of, while there is none.
/// WithoutAccessibility.cpp tells how to see what that costs.
namespace tarvel {
namespace {

constexpr std::int64_t kRink = 1;
constexpr std::int64_t kVenue = 4;
constexpr std::int64_t kSessionsOfADay = 24;
constexpr std::int64_t kDays = 7;
constexpr std::array kWeeks{packedDate(2026, 3, 15), packedDate(2026, 3, 22)};

void startApplication() {
  static int argc = 1;
  static char name[] = "tarvel-bench";
  static char* argv[] = {name, nullptr};
  if (QApplication::instance()) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(argc, argv);  // which the end of the process takes
  initAssets();
}

/// A venue with two full weeks.
struct FullRink {
  FullRink() {
    world.addRink(kRink, "North");
    rink = world.openRink(kRink, {test::ScheduleWorld::venue(kVenue, "Near", 1)});
    owner.rink = rink;
    for (std::size_t week = 0; week < kWeeks.size(); ++week) publish(week, "Level 1");
  }
  void publish(std::size_t week, const std::string& subtitle) {
    WeekFile file;
    for (std::int64_t i = 0; i < kSessionsOfADay * kDays; ++i) {
      const auto kind = static_cast<SessionKind>(i % kSessionKindCount);
      file.items.push_back(
          {kind, i % kDays, 360 + 45 * (i / kDays), 45, subtitle, i % 5 ? "" : "Bring gloves."});
    }
    rink->venue(kVenue)->weeklySchedule(kWeeks[week])->adopt(file);
  }
  void settle() {
    world.runUntilIdle();
    QApplication::processEvents();
  }

  test::ScheduleWorld world;
  test::ScheduleTestOwner owner;
  std::shared_ptr<RinkData> rink;
};

/// Another week comes to a page on show, and is painted.
void turnWeekForReaders(benchmark::State& state) {
  startApplication();
  FullRink full;
  Window window;
  window.resize(1600, 1000);
  WeeklyScheduleView week(full.world.context, full.owner, &window);
  week.resize(window.size());
  week.setChosenRink(full.rink);
  week.setChosenVenueID(kVenue);
  window.makeKeyAndOrderFront();
  std::size_t turn = 0;
  for (auto _ : state) {
    week.setWeekContaining(kWeeks[++turn % kWeeks.size()]);
    full.settle();
  }
  week.close();
}
BENCHMARK(turnWeekForReaders)->Unit(benchmark::kMillisecond);

/// A refresh brings another form of the day that a Today window shows.
void refreshTodayForReaders(benchmark::State& state) {
  startApplication();
  FullRink full;
  auto today = TodayWindowController::create(full.world.context);
  today->restoreSettings({{"rinkID", kRink}}, FromAnotherDocument::no);
  today->showWindow();
  today->window()->resize(1600, 1000);
  full.settle();
  int turn = 0;
  for (auto _ : state) {
    full.publish(0, ++turn % 2 ? "Level 2" : "Level 1");
    full.settle();
  }
  today->window()->close();
}
BENCHMARK(refreshTodayForReaders)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvel
