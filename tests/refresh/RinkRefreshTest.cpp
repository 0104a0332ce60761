#include "EngineFixture.h"
#include "support/Encoded.h"

namespace tarvel {
namespace {

class RinkRefreshTest : public EngineFixture {
 protected:
  Texts urls(const Texts& names) const {
    Texts urls;
    for (const std::string& name : names) urls.push_back(site.rinks[0].url(name));
    return urls;
  }
  PublishedVenue& main() { return site.rinks[0].venues[0]; }
  /// The number of items at hand of that week of the first venue; -1 for none.
  static int itemsOf(RinkData& rink, PackedDate weekOf) {
    const auto items = rink.venues[0]->weeklySchedule(weekOf)->items();
    return items ? static_cast<int>(items->size()) : -1;
  }
};

const Texts kShownFiles = {"main.b1",
                           "master.b1",
                           "venue-1_schedules.b1",
                           "venue-3_schedules.b1",
                           "venue-1_week-2026-03-08.b1",
                           "venue-1_week-2026-03-15.b1",
                           "venue-3_week-2026-03-08.b1",
                           "venue-3_week-2026-03-15.b1"};

TEST_F(RinkRefreshTest, AChosenRinkFetchesWhatIsShownAndTheWeeksOfNowAndNext) {
  startWithCatalogue();
  const NotificationRecorder recorder(sim.notifications, sim.world);
  RinkData& rink = show(7);
  EXPECT_EQ(requested(), urls(kShownFiles));
  EXPECT_EQ(itemsOf(rink, kThisWeek), 3);
  EXPECT_EQ(itemsOf(rink, kNextWeek), 3);
  EXPECT_EQ(rink.lastRefreshTimeStamp(), sim.world.now());
  EXPECT_EQ(rink.secondsUntilRefresh(), 14'400.0);
  EXPECT_EQ(rink.refreshName(), "Arctic");
  const std::pair<NotificationName, std::size_t> counts[] = {
      {kDateRangeChanged, 1}, {kVenuesChanged, 1},          {kCoverPhotoChanged, 1},
      {kSchedulesChanged, 2}, {kWeeklyScheduleChanged, 12}, {kRefreshStatusChanged, 1},
      {kRinkListChanged, 0}};
  for (const auto& [announced, times] : counts)
    EXPECT_EQ(recorder.count(announced, &rink), times) << announced.text;

  sim.http.clearRequests();
  EXPECT_EQ(itemsOf(rink, kLaterWeek), -1);
  EXPECT_EQ(itemsOf(rink, kLaterWeek), -1);
  sim.world.runFor(1);
  EXPECT_EQ(itemsOf(rink, kLaterWeek), 3);
  EXPECT_EQ(requested(), urls({"venue-1_week-2026-03-22.b1"})) << "once, when a view asks";
  EXPECT_EQ(rink.lastRefreshTimeStamp(), sim.world.now() - 1.0) << "no refresh";
  for (const char* name : {"main.b1", "venue-3_schedules.b1", "venue-1_week-2026-03-08.b1"})
    EXPECT_EQ(stored("rink-7/" + std::string(name)), site.files().at(site.rinks[0].url(name))) << name;
  EXPECT_EQ(storedDateOf("rink-7/main.b1"), Instant{792'000'000.75});
  EXPECT_EQ(storedDateOf("rink-7/venue-1_week-2026-03-22.b1"), main().weeks[3].date.actual);
  EXPECT_FALSE(stored("rink-7/master.b1"));
}

TEST_F(RinkRefreshTest, ARinkIsRefreshedWhenItComesOnScreenIfThatIsDue) {
  startWithCatalogue();
  RinkData& rink = show(7);
  const std::tuple<DownloadErrorKind, std::optional<double>, bool> cases[] = {
      {DownloadErrorKind::noError, 14'399.0, false},
      {DownloadErrorKind::noError, 14'400.0, true},
      {DownloadErrorKind::noError, std::nullopt, true},
      {DownloadErrorKind::noError, -1.0, false},
      {DownloadErrorKind::serverError, 1.0, true}};
  for (const auto& [kind, ago, due] : cases) {
    rink.refreshState.errorKind = kind;
    rink.refreshState.lastRefreshTimeStamp.reset();
    if (ago) rink.refreshState.lastRefreshTimeStamp = sim.world.now() - *ago;
    sim.http.clearRequests();
    rink.refresher().refreshIfDue();
    sim.world.runFor(0);
    EXPECT_EQ(requested(), due ? urls({"master.b1"}) : Texts{});
  }
}

TEST_F(RinkRefreshTest, MismatchesAreLoggedAndTriedOnceMoreInHalfAnHour) {
  const auto shift = [](PublishedDate& date, double seconds) { date.promised = date.actual + seconds; };
  const std::tuple<const char*, std::function<void()>, std::string> cases[] = {
      {"main.b1", [&] { shift(site.rinks[0].mainDate, 3600.25); },
       "date mismatch for main.b1 - Arctic\n    modified  2/5/2026 4:00:00 pm\n    expected  2/5/2026 "
       "5:00:01 pm"},
      {"venue-1_schedules.b1",
       [&] {
         site.rinks[0].mainDate.publishAnew();
         shift(main().schedulesDate, 60.0);
       },
       "date mismatch for venue-1_schedules.b1 - Arctic (Main)\n"
       "    modified  2/5/2026 4:01:40 pm  792000100.125\n    expected  2/5/2026 4:02:40 pm  792000160.125"},
      {"venue-1_week-2026-03-08.b1",
       [&] {
         site.rinks[0].mainDate.publishAnew();
         main().schedulesDate.publishAnew();
         shift(main().weeks[1].date, 1.0);
       },
       "date mismatch for fileName - Arctic\n    modified  2/5/2026 4:01:48 pm\n    expected  2/5/2026 "
       "4:01:49 pm"},
  };
  for (const auto& [file, change, message] : cases) {
    SCOPED_TRACE(file);
    site = PublishedSite::sample();
    startWithCatalogue();
    RinkData& rink = show(7);
    change();
    refresh(rink);
    ASSERT_EQ(engine->log->logMessages().size(), 1U);
    EXPECT_EQ(engine->log->logMessages()[0].msg, message);
    EXPECT_EQ(rink.errorKind(), DownloadErrorKind::noError);
    EXPECT_EQ(rink.secondsUntilRefresh(), 1'800.0);
    EXPECT_EQ(rink.venues[0]->weeklySchedule(kThisWeek)->downloadStatus(), DownloadStatus::idle());
    sim.http.clearRequests();
    sim.world.runFor(1'800.0);
    EXPECT_EQ(sim.http.requestCount(site.rinks[0].url(file)), 1U);
    EXPECT_EQ(rink.secondsUntilRefresh(), 14'400.0) << "a second mismatch waits for the ordinary time";
    engine.reset();
    (void)sim.disk.remove(kStore);
  }
}

TEST_F(RinkRefreshTest, AFailedWeekIsTriedAgainByTheNextRefreshAlone) {
  startWithCatalogue();
  const std::string week = site.rinks[0].url("venue-1_week-2026-03-08.b1");
  sim.http.serveStatus(week, 503);
  RinkData& rink = show(7);
  const auto schedule = rink.venues[0]->weeklySchedule(kThisWeek);
  EXPECT_EQ(schedule->downloadStatus(), DownloadStatus::failed("503 Service Unavailable"));
  EXPECT_EQ(schedule->items(), nullptr);
  sim.world.runFor(1);
  EXPECT_EQ(sim.http.requestCount(week), 1U);
  EXPECT_EQ(rink.errorKind(), DownloadErrorKind::serverError);
  const NotificationRecorder recorder(sim.notifications, sim.world, {kWeeklyScheduleChanged});
  sim.http.forget(week);
  refresh(rink);
  EXPECT_EQ(itemsOf(rink, kThisWeek), 3);
  ASSERT_EQ(recorder.deliveries().size(), 3U) << "requested, idle, and once more";
  EXPECT_EQ(recorder.deliveries()[0].userInfo, (UserInfo{{"venueID", 1}, {"weekOf", kThisWeek}}));
  EXPECT_EQ(recorder.deliveries()[0].object, &rink);
}

TEST_F(RinkRefreshTest, ARinkRemovedWhileItsFilesAreInFlightLeavesNothing) {
  startWithCatalogue();
  sim.http.setLatency(10.0);
  std::weak_ptr<RinkData> rink = model().rinkData(7);
  rink.lock()->readMainFile();
  rink.lock()->refresher().performRefresh();
  site.rinks.erase(site.rinks.begin());
  model().mergeRinkList(decodeRinkList(site.rinkList()));
  EXPECT_FALSE(rink.expired()) << "the notification under way still holds it";
  sim.world.runFor(1);
  EXPECT_TRUE(rink.expired());
  sim.world.runFor(60);
  EXPECT_FALSE(sim.disk.info(kStore + "/rink-7"));
  EXPECT_EQ(sim.http.requests().size(), 2U);
}

TEST_F(RinkRefreshTest, ARinkOutsideTheCatalogueAsksForNothingAndRests) {
  startWithCatalogue();
  const auto rink = model().rinkData(99);
  rink->readMainFile();
  refresh(*rink);
  sim.world.runFor(10);
  EXPECT_EQ(requested(), Texts{});
  EXPECT_EQ(rink->secondsUntilRefresh(), -1.0);
}

TEST_F(RinkRefreshTest, AMasterFileMayNameOnlyAFileOfTheRinksFolder) {
  startWithCatalogue();
  RinkData& rink = show(7);
  for (const std::string name : {"../rinks.b1", "/etc/passwd", ".hidden", "", "other.b1"}) {
    sim.http.serve(site.rinks[0].url("master.b1"), encoded(name, site.rinksDate.actual));
    sim.http.clearRequests();
    refresh(rink);
    EXPECT_EQ(requested(), urls({"master.b1", "main.b1"})) << name;
  }
}

}  // namespace
}  // namespace tarvel
