#include <malloc.h>

#include <filesystem>
#include <set>

#include "AppWorld.h"
#include "auxwindows/CautionPopoverViewController.h"
#include "auxwindows/InstanceTable.h"
#include "auxwindows/RefreshPopoverViewController.h"
#include "foundation/TextFormats.h"
#include "simulation/ports/CorruptBytes.h"
#include "todaywindow/TodayWindowController.h"
#include "ui/TextCache.h"

namespace tarvel {
namespace {

constexpr double kHour = 3600.0;
constexpr int kDay = 24;  // hours
constexpr std::size_t kItemsOfADay = 12;
constexpr std::int64_t kItemsOfAWeek = 7 * kItemsOfADay;
constexpr int kWeeksOffered = 4;
/// Beyond the ten minutes after which a lost connection is tried again.
constexpr double kMostUntilHealed = 720.0;
/// What the allocator may hold beyond the first day's: far below one small leak a minute.
constexpr std::size_t kHeapSlack = 400'000;

/// Everything of the process that could grow without anybody seeing it.
struct Holdings {
  std::map<std::string_view, std::int64_t> instances;  ///< by class; sessions come and go with the content
  std::int64_t sessions = 0;
  std::ptrdiff_t widgets = 0;
  std::size_t timers = 0;
  std::size_t queuedTasks = 0;
  std::ptrdiff_t openFiles = 0;
  std::set<Path> files;  ///< of the store, but for the weeks' own
  int weekFiles = 0;
  std::size_t heap = 0;  ///< bytes
};

/// A screen on the wall: one Today window in kiosk mode and nothing else, over a server that changes its week
/// every hour. The rink's zone turns its clocks on the first day.
class KioskMonthTest : public AppWorld {
 protected:
  using Network = std::function<ScriptedHttpClient::Reply(const ScriptedHttpClient::Request&)>;

  KioskMonthTest() {
    site_.rinks.front().venues.front().weeks.clear();
    publish();
    // The log is full from the start, so that its growth hides no other.
    for (int i = 0; i < 600; ++i) gErrorLog->addMessage(std::string(80, 'x'));
    app_->toggleKioskMode();
    app_->todayWindow();
    for (Window* const window : Window::orderedWindows())
      if (&dynamic_cast<WindowController&>(*window->delegate()) != &today()) window->performClose();
    settle();
  }

  static TodayWindowController& today() {
    for (const Window* window : Window::orderedWindows())
      if (auto* const found = dynamic_cast<TodayWindowController*>(window->delegate())) return *found;
    throw std::runtime_error("no Today window");
  }
  RinkData& rink() { return *today().chosenRink(); }
  PublishedVenue& shownVenue() { return site_.rinks.front().venues.front(); }

  void useNetwork(Network network) { sim_.http.handlePrefix("http://", std::move(network)); }
  /// One request in four fails in one of the ways a network has.
  ScriptedHttpClient::Reply faultyReply(const ScriptedHttpClient::Request& request) {
    switch (random_.below(20)) {
      case 0:
        return HttpFailure{HttpFailure::Kind::transport, "Connection refused"};
      case 1:
        return std::nullopt;
      case 2:
        return HttpResponse{503, {}};
      case 3:
      case 4: {
        HttpResponse reply = site_.answer(request.url);
        if (!reply.body.empty()) reply.body = cutAt(reply.body, random_.below(reply.body.size()));
        return reply;
      }
      default:
        return site_.answer(request.url);
    }
  }

  /// The weeks from the last one to the next but one, the present one with other sessions than before.
  void publish() {
    PublishedVenue& venue = shownVenue();
    PublishedRink& rink = site_.rinks.front();
    const auto zone = TimeZone::named(rink.record.timeZone);
    const PackedDate thisWeek = startOfWeek(packedDate(zone->local(sim_.world.now())));
    rink.firstWeek = subtractDays(thisWeek, 7);
    rink.lastWeek = addDays(thisWeek, 14);
    std::erase_if(venue.weeks, [&](const auto& week) { return week.weekOf < rink.firstWeek; });
    for (PackedDate week = rink.firstWeek; week <= rink.lastWeek; week = addDays(week, 7)) {
      auto place = std::find_if(venue.weeks.begin(), venue.weeks.end(),
                                [week](const PublishedWeek& each) { return each.weekOf >= week; });
      if (place == venue.weeks.end() || place->weekOf != week)
        place = venue.weeks.insert(place, PublishedWeek{week, {{793'000'000.5}, {}}, itemsOfAWeek()});
      if (week != thisWeek) continue;
      place->date.publishAnew();
      place->items = itemsOfAWeek();
    }
    venue.schedulesDate.publishAnew();
    rink.mainDate.publishAnew();
  }
  std::vector<ScheduleItemRecord> itemsOfAWeek() {
    std::vector<ScheduleItemRecord> items;
    for (int day = 0; day < 7; ++day) {
      for (int time = 360; time < 1440; time += 90) {
        items.push_back({static_cast<SessionKind>(random_.below(kSessionKindCount)), day, time, 75,
                         "Group " + std::to_string(random_.next()), "Bring skates"});
      }
    }
    return items;
  }

  /// With a picture of the window every hour, as its screen would show it.
  void passHours(int hours) {
    for (int i = 0; i < hours; ++i) {
      sim_.world.runFor(kHour);
      publish();
      QApplication::processEvents();
      today().window()->grab();
      sim_.http.clearRequests();
      sim_.disk.clearLog();
      sim_.console.clear();
    }
  }
  void expectTheRinksDayAndTime() {
    const LocalTime time = TimeZone::named("America/Denver")->local(sim_.world.now());
    const auto& views = today().views();
    EXPECT_EQ(views.timeField().text(), timeText(time.hour * 60 + time.minute));
    EXPECT_EQ(views.dateField().text(), fullDateText(packedDate(time)));
    EXPECT_EQ(today().todayScheduleView().currentDate(), packedDate(time));
    EXPECT_EQ(today().todayScheduleView().scheduleItems().size(), kItemsOfADay);
  }
  /// Whether the sessions on the display are those that the server has for the day.
  bool isUpToDate() {
    const PackedDate date = rink().dateNow();
    std::set<std::string> published;
    for (const PublishedWeek& week : shownVenue().weeks) {
      for (const ScheduleItemRecord& item : week.items)
        if (week.weekOf == startOfWeek(date) && item.day == weekdayOf(date)) published.insert(item.subtitle);
    }
    std::set<std::string> shown;
    for (const auto& item : today().todayScheduleView().scheduleItems()) shown.insert(item->subtitle);
    return shown == published && rink().errorKind() == DownloadErrorKind::noError;
  }
  Holdings holdings();

  SeededRandom random_{20260308};
};

Holdings KioskMonthTest::holdings() {
  // What is left of the hour's turmoil is over when a refresh has gone well.
  site_.serveOn(sim_.http);
  passHours(5);
  Holdings held;
  for (const CountedGroup& group : instanceTable())
    for (const CountedClass& counted : group.classes) held.instances[counted.name] = counted.liveCount();
  held.sessions = std::exchange(held.instances["ScheduleItem"], 0);
  held.widgets = today().window()->findChildren<QObject*>().size();
  held.timers = sim_.world.pendingTimers();
  held.queuedTasks = sim_.world.mainLoop().queuedTasks();
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  held.openFiles = std::distance(begin(descriptors), end(descriptors));
  for (const auto& [path, file] : sim_.disk.snapshot())
    path.find("_week-") == Path::npos ? (void)held.files.insert(path) : (void)++held.weekFiles;
  TextCache::shared().clear();  // it is bounded, and full of the last texts
  held.heap = mallinfo2().uordblks;
  return held;
}

TEST_F(KioskMonthTest, AfterThirtyDaysItHoldsWhatItHeldAfterTheFirst) {
  passHours(kDay);
  const Holdings first = holdings();
  useNetwork([this](const auto& request) { return faultyReply(request); });
  passHours(29 * kDay);
  const Holdings last = holdings();
  expectTheRinksDayAndTime();
  today().refreshNow();
  settle();
  EXPECT_TRUE(isUpToDate());
  EXPECT_EQ(last.instances, first.instances);
  EXPECT_LE(last.sessions, kWeeksOffered * kItemsOfAWeek) << "of weeks that are over none is kept";
  EXPECT_EQ(last.widgets, first.widgets);
  EXPECT_EQ(last.timers, first.timers);
  EXPECT_EQ(last.queuedTasks, 0U);
  EXPECT_EQ(last.openFiles, first.openFiles);
  EXPECT_EQ(last.files, first.files);
  EXPECT_LE(last.weekFiles, kWeeksOffered);
  EXPECT_LT(last.heap, first.heap + kHeapSlack);
}

TEST_F(KioskMonthTest, ANetworkThatIsGoneForAWeekLeavesTheDisplayGoingAndComesBackByItself) {
  passHours(1);
  useNetwork([](const auto&) { return HttpFailure{HttpFailure::Kind::transport, "Network is unreachable"}; });
  passHours(1);
  useNetwork([](const auto&) { return std::nullopt; });
  today().refreshNow();
  for (int day = 0; day < 7; ++day) {
    passHours(kDay);
    expectTheRinksDayAndTime();
  }
  today().views().refreshButton().click();
  const auto lastRefresh = [this] {
    return today().popovers().controller()->lastRefreshTimeField().text().toStdString();
  };
  EXPECT_EQ(CautionPopoverViewController::liveCount(), 1);
  EXPECT_EQ(lastRefresh(), "170 hours ago");

  site_.serveOn(sim_.http);
  sim_.world.runFor(kMostUntilHealed);
  EXPECT_TRUE(isUpToDate());
  EXPECT_EQ(RefreshPopoverViewController::liveCount(), 1) << "the open popover follows";
  EXPECT_TRUE(lastRefresh().ends_with(" minutes ago")) << lastRefresh();
}

}  // namespace
}  // namespace tarvel
