#include "EngineFixture.h"

namespace tarvel {
namespace {

constexpr double kDay = 86'400.0;

class MasterRefreshTest : public EngineFixture {
 protected:
  const std::string root = site.server + "/root.b1", defs = site.server + "/defs.b1",
                    rinks = site.server + "/rinks.b1", logo = site.server + "/logos/7.png";

  void publishAnew() {
    site.defsDate.publishAnew();
    site.rinksDate.publishAnew();
  }
};

TEST_F(MasterRefreshTest, AFirstStartFetchesBothFilesAtOnceAndTheIndexTwoSecondsLater) {
  const NotificationRecorder recorder(sim.notifications, sim.world,
                                      {kScheduleNamesChanged, kScheduleColorsChanged, kRinkListChanged});
  start();
  sim.world.runFor(0);
  EXPECT_EQ(model().sessionName(1), "Open Skate");
  EXPECT_EQ(model().rinkInfo(12)->name, "Harbor");
  EXPECT_EQ(recorder.names(), (std::vector<std::string_view>{
                                  "schedule names changed", "schedule colors changed", "rink list changed"}));
  EXPECT_EQ(storedDateOf("defs.b1"), site.defsDate.actual);
  EXPECT_EQ(stored("rinks.b1"), site.rinkList());
  EXPECT_FALSE(model().lastRefreshTimeStamp()) << "no refresh was running";

  sim.world.runFor(2.5);
  ASSERT_EQ(requested(), (Texts{defs, rinks, root}));
  EXPECT_EQ(sim.http.requests()[1].seconds, 0.0);
  EXPECT_EQ(sim.http.requests()[2].seconds, 2.0);
  EXPECT_EQ(model().lastRefreshTimeStamp(), sim.http.requests()[2].at);
  EXPECT_EQ(model().secondsUntilRefresh(), 172'800.0 - 0.5);
  EXPECT_EQ(model().applicationWebsiteURL, "https://tarvel.test");
  EXPECT_EQ(model().refreshName(), "Rink List and Related Information");
}

TEST_F(MasterRefreshTest, AUrlIsInFlightOnceAndTheCycleEndsWithTheLastFile) {
  sim.http.setLatency([&](const auto& request) { return request.url == root ? 1.0 : 10.0; });
  start();
  sim.world.runFor(2.5);
  model().refreshNow();
  engine->master.masterRefresh();
  sim.world.runFor(7);
  EXPECT_TRUE(model().refreshInProgress()) << "the launch's downloads have joined the cycle";
  EXPECT_EQ(model().refreshState.requestedFiles, (Texts{defs, rinks}));
  sim.world.runFor(1);
  EXPECT_FALSE(model().refreshInProgress());
  EXPECT_EQ(sim.http.requests().size(), 3U);
  EXPECT_EQ(sim.http.maxInFlightOfOneUrl(), 1);
}

TEST_F(MasterRefreshTest, OnlyWhatDiffersIsFetched) {
  startWithCatalogue();
  refresh(model());
  EXPECT_EQ(requested(), Texts{root});
  site.sessions[0].name = "Renamed";
  site.defsDate.publishAnew();
  refresh(model());
  EXPECT_EQ(requested(), (Texts{root, root, defs}));
  EXPECT_EQ(model().sessionName(0), "Renamed");
  site.rinksDate = {site.rinksDate.actual - 500.0, std::nullopt};  // an older date is another version as well
  refresh(model());
  EXPECT_EQ(requested(), (Texts{root, root, defs, root, rinks}));
  EXPECT_EQ(storedDateOf("rinks.b1"), site.rinksDate.actual);
}

TEST_F(MasterRefreshTest, AMismatchIsLoggedAndTriedOnceMoreInHalfAnHour) {
  startWithCatalogue();
  site.defsDate.promised = site.defsDate.actual + 3600.0;
  site.rinksDate.promised = site.rinksDate.actual + 1.5;
  site.sessions[0].name = "New";
  refresh(model());
  EXPECT_EQ(model().sessionName(0), "New") << "stored and used all the same";
  ASSERT_EQ(engine->log->logMessages().size(), 2U);
  EXPECT_EQ(engine->log->logMessages()[0].msg,
            "date mismatch for defs.b1    modified  1/13/2026 12:26:40 pm    expected  1/13/2026 1:26:40 pm");
  EXPECT_EQ(engine->log->logMessages()[1].msg,
            "date mismatch for rinks.b1    modified  1/25/2026 2:13:20 am    expected  1/25/2026 2:13:21 am");
  EXPECT_EQ(model().secondsUntilRefresh(), 1'800.0);
  EXPECT_EQ(model().errorKind(), DownloadErrorKind::noError);
  sim.http.clearRequests();
  sim.world.runFor(1'800.0);
  EXPECT_EQ(requested(), (Texts{root, defs, rinks}));
  EXPECT_EQ(model().secondsUntilRefresh(), 172'800.0) << "a second mismatch waits for the ordinary time";
  site.defsDate.promised.reset();
  site.rinksDate.promised.reset();
  refresh(model());
  EXPECT_FALSE(model().refreshState.mismatchError);
  EXPECT_TRUE(model().refreshState.prevMismatchError);
}

TEST_F(MasterRefreshTest, AfterARestartTheStampsOfTheStateDecide) {
  const std::pair<double, double> cases[] = {
      {1.0, kDay}, {3.0, 2.0}, {-400.0, 2 * kDay}};  // the last: a clock that was far ahead
  for (const auto& [offDays, seconds] : cases) {
    startWithCatalogue();
    refresh(model());
    quit();
    sim.world.stepWall(offDays * kDay);
    sim.http.clearRequests();
    start();
    EXPECT_NEAR(model().secondsUntilRefresh(), seconds, 1.0) << offDays;
    EXPECT_EQ(requested(), Texts{}) << "both local files are there";
    engine.reset();
    (void)sim.disk.remove(kStore);
  }
}

TEST_F(MasterRefreshTest, WhileAnUpdateIsRequiredNothingElseIsFetched) {
  startWithCatalogue();
  RinkData& rink = show(7);
  bool required = true;
  engine->master.decideUpdate = [&](const RootFile& file) {
    EXPECT_EQ(file.currentVersion, 6LL << 48);
    model().applicationUpdateRequired = required;
  };
  publishAnew();
  sim.http.clearRequests();
  refresh(model());
  EXPECT_EQ(requested(), Texts{root});
  rink.refreshNow();
  rink.refresher().refreshIfDue();
  sim.world.runFor(4 * 3600 + 1);
  EXPECT_EQ(requested(), Texts{root});
  EXPECT_FALSE(rink.refreshInProgress());
  restart();
  EXPECT_EQ(model().secondsUntilRefresh(), 2.0);
  EXPECT_TRUE(model().applicationUpdateRequired);
  engine->master.decideUpdate = [&](const RootFile&) { model().applicationUpdateRequired = false; };
  sim.world.runFor(5);
  EXPECT_EQ(sim.http.requestCount(defs), 1U);
  EXPECT_EQ(sim.http.requestCount(site.rinks[0].url("master.b1")), 1U) << "the rinks go on by themselves";
}

TEST_F(MasterRefreshTest, TheFlagsOfAManualRefreshLastUntilTheIndexIsThere) {
  startWithCatalogue();
  sim.http.setLatency(1.0);
  engine->master.performRefresh();
  EXPECT_FALSE(model().isManualRefresh);
  engine->master.checkForUpdate();
  EXPECT_EQ(model().secondsUntilRefresh(), -1.0) << "the waiting timer is dropped";
  EXPECT_TRUE(model().isManualRefresh && model().isCheckForAppUpdate) << "for the cycle that runs";
  bool seen = false;
  engine->master.decideUpdate = [&](const RootFile&) {
    seen = model().isManualRefresh && model().isCheckForAppUpdate;
  };
  sim.world.runFor(2);
  EXPECT_TRUE(seen);
  EXPECT_FALSE(model().isManualRefresh || model().isCheckForAppUpdate);
  EXPECT_EQ(sim.http.requestCount(root), 1U);

  const double waiting = model().secondsUntilRefresh();
  engine->master.masterRefresh();
  EXPECT_EQ(model().secondsUntilRefresh(), waiting);
  EXPECT_FALSE(model().isManualRefresh);
}

TEST_F(MasterRefreshTest, AnotherServerIsAskedAtOnceOrAfterTheRunningCycle) {
  startWithCatalogue();
  PublishedSite other = PublishedSite::sample();
  other.server = "http://other.test";
  other.defsDate.publishAnew();
  other.sessions[0].name = "Other";
  other.serveOn(sim.http, other.server);
  model().setServerURL(site.server);
  sim.world.runFor(1);
  EXPECT_EQ(requested(), Texts{}) << "the same address";
  sim.console.clear();
  model().setServerURL(other.server);
  sim.world.runFor(1);
  EXPECT_EQ(sim.console.lines()[0], "Begin refresh");
  EXPECT_EQ(requested(), (Texts{other.server + "/root.b1", other.server + "/defs.b1"}));
  EXPECT_EQ(model().sessionName(0), "Other");

  restart();
  EXPECT_EQ(model().tarvelServerURL, other.server);
  sim.http.clearRequests();
  other.defsDate.publishAnew();
  model().refreshNow();
  model().setServerURL(site.server);
  sim.world.runFor(1);
  EXPECT_EQ(requested(), (Texts{other.server + "/root.b1", other.server + "/defs.b1"}));
  sim.http.clearRequests();
  refresh(model());
  EXPECT_EQ(requested(), (Texts{root, defs}));
}

TEST_F(MasterRefreshTest, AWebsiteThatTheStateCantHoldIsNone) {
  startWithCatalogue();
  site.applicationWebsiteURL = "https://tarvel.test/\x01";
  refresh(model());
  EXPECT_EQ(model().applicationWebsiteURL, "");
  EXPECT_TRUE(engine->saveState());
}

TEST_F(MasterRefreshTest, LogosComeWhenAskedForAndJoinARunningCycle) {
  startWithCatalogue();
  const auto info = model().rinkInfo(7);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(info->logoImage(), nullptr);
  sim.world.runFor(1);
  EXPECT_EQ(requested(), Texts{logo});
  EXPECT_TRUE(info->logoImage());
  EXPECT_EQ(storedDateOf("logos/7.png"), info->logoFileDate);
  EXPECT_GT(model().secondsUntilRefresh(), kDay) << "outside a cycle it moves no timer";

  sim.http.setLatency([&](const auto& request) { return request.url == logo ? 5.0 : 0.0; });
  info->cachedLogoImage = nullptr;
  info->logoFileDate = Instant{1.0};
  info->logoImage();
  model().refreshNow();
  sim.world.runFor(1);
  EXPECT_TRUE(model().refreshInProgress()) << "prolonged by the logo";
  model().mergeRinkList({});
  sim.world.runFor(5);
  EXPECT_FALSE(model().refreshInProgress());
  EXPECT_EQ(storedDateOf("logos/7.png"), Instant{789'000'000.375}) << "the rink has left meanwhile";
}

TEST_F(MasterRefreshTest, AMissingLogoIsAnErrorOutsideARefreshAndIsNotAskedForAgain) {
  startWithCatalogue();
  site.logos.clear();
  for (int i = 0; i < 2; ++i) {
    model().rinkInfo(7)->logoImage();
    sim.world.runFor(1);
  }
  EXPECT_EQ(model().errorKind(), DownloadErrorKind::serverError);
  EXPECT_EQ(model().secondsUntilRefresh(), 14'400.0 - 2.0);
  EXPECT_EQ(requested(), Texts{logo});
}

}  // namespace
}  // namespace tarvel
