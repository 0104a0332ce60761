#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "schedule/CalendarPainter.h"
#include "schedule/DailyPainter.h"
#include "schedule/Items.h"
#include "schedule/PageTurnView.h"
#include "schedule/PagedView.h"
#include "schedule/ScheduleWorld.h"
#include "schedule/WeeklyPainter.h"
#include "todaywindow/TodayPainter.h"
#include "ui/Icons.h"
#include "ui/TextCache.h"

namespace tarvel {
namespace {

constexpr Size kView{1600.0, 1000.0};
constexpr PackedDate kToday = packedDate(2026, 3, 18);
constexpr int kItemsOfAWeek = 150;
constexpr int kVenues = 8;
constexpr int kManyItems = 1'000;
constexpr Size kCalendar{180.0, 2400.0};  // two years of months
constexpr int kFramesOfATurn = 60;

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

/// Paints over and over into one picture of that size.
template <class Paint>
void paintRepeatedly(benchmark::State& state, Size size, Texts texts, const Paint& paint) {
  QImage image(static_cast<int>(size.width), static_cast<int>(size.height), QImage::Format_RGB32);
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
  paintRepeatedly(state, kView, texts, [&](QPainter& painter) {
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
  paintRepeatedly(state, kView, texts, [&](QPainter& painter) {
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

void repaintCalendar(benchmark::State& state, Texts texts) {
  startApplication();
  CalendarLayout layout(packedDate(2025, 3, 1), packedDate(2027, 2, 28));
  layout.setWidth(kCalendar.width);
  const CalendarSelection selection = CalendarSelection::around(kToday, PeriodViewOption::week);
  const CalendarPicture picture{layout, selection, kToday};
  paintRepeatedly(state, kCalendar, texts, [&](QPainter& painter) {
    paintCalendar(painter, picture, {0.0, 0.0, kCalendar.width, kCalendar.height});
  });
}
BENCHMARK_CAPTURE(repaintCalendar, first, Texts::measuredAnew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintCalendar, second, Texts::remembered)->Unit(benchmark::kMillisecond);

/// A page with a full week on it.
class WeekPage : public PagedView {
 public:
  WeekPage(test::ScheduleWorld& world, QWidget* parent)
      : PagedView(world.sim.notifications, parent), dataModel_(world.dataModel) {
    resize(static_cast<int>(kView.width), static_cast<int>(kView.height));
  }
  void adjustSize() override {}
  void pageDidChangeSettings() override {}
  void pageDidBecomeCurrent() override {}
  void close() override { isClosing = true; }
  void loadData() override { isAwaitingData = false; }

 protected:
  void draw(QPainter& painter, const Rect& dirty) override {
    paintWeek(painter, {layout_, items_, styles_, dataModel_, SessionTimes::shown, kToday}, dirty);
  }

 private:
  DataModel& dataModel_;
  ScheduleItems items_ = itemsOf(kItemsOfAWeek);
  WeeklyLayout layout_{{{kView}, test::kWeekOf}};
  ItemStyles styles_ = ItemStyles::onScreen(9.0);
};

/// Three pages and the view that turns them. Its first turn has measured the pages' texts.
struct PagesToTurn {
  PagesToTurn() {
    window.resize(static_cast<int>(kView.width), static_cast<int>(kView.height));
    begin();
  }
  void begin() { turn.begin(previous, current, next, window.rect()); }

  test::ScheduleWorld world;
  QWidget window;
  WeekPage previous{world, &window};
  WeekPage current{world, &window};
  WeekPage next{world, &window};
  PageTurnView turn{&window};
};

/// The pictures of the three pages, which a turn takes once.
void beginPageTurn(benchmark::State& state) {
  startApplication();
  PagesToTurn pages;
  for (auto _ : state) pages.begin();
}
BENCHMARK(beginPageTurn)->Unit(benchmark::kMillisecond);

/// One frame of a turn, in the mean over a whole one, towards the next page or the previous one.
void paintPageTurnFrame(benchmark::State& state, double direction) {
  startApplication();
  PagesToTurn pages;
  QImage image(pages.window.size(), QImage::Format_RGB32);
  int frame = 0;
  for (auto _ : state) {
    frame = frame % (kFramesOfATurn - 1) + 1;
    const double amount = direction * frame / kFramesOfATurn;
    pages.turn.setPlaces(gestureStep(amount, kView.width, true, true).places);
    pages.turn.render(&image);
  }
}
BENCHMARK_CAPTURE(paintPageTurnFrame, toNext, -1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintPageTurnFrame, toPrevious, 1.0)->Unit(benchmark::kMillisecond);

/// A kiosk's whole display, on the largest screen there is.
void repaintToday(benchmark::State& state, Texts texts) {
  startApplication();
  constexpr Size kScreen{3840.0, 2160.0};
  test::ScheduleWorld world;
  const ScheduleItems items = columnsOf(20).front();
  TodayStyles styles;
  styles.apply(TodayStyles::kLargestSize);
  const TodayLayout layout({kScreen, VerticalFit::fit, 1.0, Medium::screen,
                            todayRange(items, TodayLayout::kLeastRange), measureToday(items, styles)});
  const TodayPicture picture{layout, items, styles, world.dataModel, 600};
  paintRepeatedly(state, kScreen, texts, [&](QPainter& painter) {
    painter.fillRect(QRectF(0.0, 0.0, kScreen.width, kScreen.height), Qt::white);
    paintToday(painter, picture, {0.0, 0.0, kScreen.width, kScreen.height});
  });
}
BENCHMARK_CAPTURE(repaintToday, first, Texts::measuredAnew)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repaintToday, second, Texts::remembered)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvel
