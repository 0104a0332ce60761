#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "schedule/DailyPainter.h"
#include "schedule/Items.h"
#include "schedule/ScheduleWorld.h"
#include "schedule/WeeklyPainter.h"
#include "ui/Icons.h"
#include "ui/TextCache.h"

namespace tarvel {
namespace {

constexpr Size kView{1600.0, 1000.0};
constexpr PackedDate kToday = packedDate(2026, 3, 18);
constexpr int kItemsOfAWeek = 150;
constexpr int kVenues = 8;
constexpr int kManyItems = 1'000;

/// Fonts need an application. It is never torn down: the benchmarks end with the process.
void startApplication() {
  static int argc = 1;
  static char name[] = "tarvel-bench";
  static char* argv[] = {name, nullptr};
  static const auto* application = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    auto* made = new QApplication(argc, argv);
    initAssets();
    return made;
  }();
  benchmark::DoNotOptimize(application);
}

ScheduleItems itemsOf(int count) {
  ScheduleItems items;
  for (int i = 0; i < count; ++i) {
    const auto kind = static_cast<SessionKind>(i % kSessionKindCount);
    items.push_back(test::item(i % WeeklyLayout::kDays, 300 + i / WeeklyLayout::kDays * 1140 * 7 / count, 45,
                               kind, i % 3 == 0 ? "Level " + std::to_string(i) : ""));
  }
  return items;
}

DailyColumns columnsOf(int itemsPerVenue) {
  DailyColumns columns(kVenues);
  for (int i = 0; i < kVenues * itemsPerVenue; ++i) {
    columns[static_cast<std::size_t>(i % kVenues)].push_back(test::item(
        3, 300 + i / kVenues * 1140 / itemsPerVenue, 45, static_cast<SessionKind>(i % kSessionKindCount),
        i % 3 == 0 ? "Level " + std::to_string(i) : ""));
  }
  return columns;
}

enum class Texts { measuredAnew, remembered };

/// Paints over and over into one picture of the view's size.
template <class Paint>
void paintRepeatedly(benchmark::State& state, Texts texts, const Paint& paint) {
  QImage image(static_cast<int>(kView.width), static_cast<int>(kView.height), QImage::Format_RGB32);
  QPainter painter(&image);
  paint(painter);
  for (auto _ : state) {
    if (texts == Texts::measuredAnew) TextCache::shared().clear();
    paint(painter);
  }
}

void repaintWeek(benchmark::State& state, Texts texts) {
  startApplication();
  test::ScheduleWorld world;
  const ScheduleItems items = itemsOf(kItemsOfAWeek);
  const WeeklyLayout layout({{kView}, test::kWeekOf});
  const ItemStyles styles = ItemStyles::onScreen(9.0);
  const WeeklyPicture picture{layout, items, styles, world.dataModel, SessionTimes::shown, kToday};
  paintRepeatedly(state, texts, [&](QPainter& painter) {
    painter.fillRect(QRectF(0.0, 0.0, kView.width, kView.height), Qt::white);
    paintWeek(painter, picture, {0.0, 0.0, kView.width, kView.height});
  });
}
BENCHMARK_CAPTURE(repaintWeek, first, Texts::measuredAnew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintWeek, second, Texts::remembered)->Unit(benchmark::kMillisecond);

void repaintDay(benchmark::State& state, Texts texts) {
  startApplication();
  test::ScheduleWorld world;
  const DailyColumns columns = columnsOf(20);
  const ItemStyles styles = ItemStyles::onScreen(9.0);
  const DailyLayout layout({{kView}, kToday, kVenues, measureDay(columns, styles)});
  const DailyPicture picture{layout, columns, styles, world.dataModel, kToday};
  paintRepeatedly(state, texts, [&](QPainter& painter) {
    painter.fillRect(QRectF(0.0, 0.0, kView.width, kView.height), Qt::white);
    paintDay(painter, picture, {0.0, 0.0, kView.width, kView.height});
  });
}
BENCHMARK_CAPTURE(repaintDay, first, Texts::measuredAnew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintDay, second, Texts::remembered)->Unit(benchmark::kMillisecond);

void layOutWeek(benchmark::State& state) {
  const ScheduleItems items = itemsOf(kManyItems);
  for (auto _ : state) {
    const WeeklyLayout layout({{kView}, test::kWeekOf});
    benchmark::DoNotOptimize(layout.itemsMeeting(items, {0.0, 0.0, kView.width, kView.height}));
  }
}
BENCHMARK(layOutWeek)->Unit(benchmark::kMicrosecond);

/// With its texts measured, as when a day has been loaded.
void layOutDay(benchmark::State& state) {
  startApplication();
  const DailyColumns columns = columnsOf(kManyItems / kVenues);
  const ItemStyles styles = ItemStyles::onScreen(9.0);
  for (auto _ : state) {
    TextCache::shared().clear();
    const DailyLayout layout({{kView}, kToday, kVenues, measureDay(columns, styles)});
    benchmark::DoNotOptimize(layout.itemsMeeting(columns, {0.0, 0.0, kView.width, kView.height}));
  }
}
BENCHMARK(layOutDay)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tarvel
