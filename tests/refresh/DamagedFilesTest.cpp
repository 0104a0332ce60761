#include "EngineFixture.h"
#include "simulation/ports/CorruptBytes.h"

namespace tarvel {
namespace {

/// Downloads that aren't what they should be, and stored files that no longer are.
class DamagedFilesTest : public EngineFixture {
 protected:
  struct FileKindCase {
    std::string url;
    Path storedAs;            ///< below the store; empty for an index, which isn't stored
    std::size_t countOffset;  ///< of the first count, two bytes
    bool rinks;               ///< the rink's own state tells of it, not the catalogue's
  };

  DamagedFilesTest() {
    startWithCatalogue();
    rink = &show(7);
  }
  std::vector<FileKindCase> kinds() {
    const PublishedRink& arctic = site.rinks[0];
    const std::string schedules = "venue-1_schedules.b1", week = "venue-1_week-2026-03-08.b1";
    return {{site.server + "/root.b1", "", 32, false},
            {site.server + "/defs.b1", "defs.b1", 8, false},
            {site.server + "/rinks.b1", "rinks.b1", 8, false},
            {arctic.url("master.b1"), "", 0, true},
            {arctic.url("main.b1"), "rink-7/main.b1", 18, true},
            {arctic.url(schedules), "rink-7/" + schedules, 8, true},
            {arctic.url(week), "rink-7/" + week, 8, true}};
  }
  void publishAllAnew() {
    site.defsDate.publishAnew();
    site.rinksDate.publishAnew();
    site.rinks[0].mainDate.publishAnew();
    PublishedVenue& venue = site.rinks[0].venues[0];
    venue.schedulesDate.publishAnew();
    venue.weeks[1].date.publishAnew();
  }
  void refreshBoth() {
    refresh(model());
    refresh(*rink);
  }
  /// Publishes all anew, the one file in the damaged form, and then whole.
  void sufferAndHeal(const FileKindCase& kind, const std::function<Bytes(const Bytes&)>& damage) {
    publishAllAnew();
    const auto before = sim.disk.snapshot();
    sim.http.serve(kind.url, damage(site.files().at(kind.url)));
    refreshBoth();
    const std::string name = fileNameOf(kind.url);
    const RefreshState& state = kind.rinks ? rink->refreshState : model().refreshState;
    ASSERT_EQ(state.errorKind, DownloadErrorKind::invalidData);
    ASSERT_NE(state.errorLog.find("Invalid data\nInvalid data in " + name + " ("), std::string::npos);
    ASSERT_NE(engine->log->logMessages().back().msg.find("Invalid data in " + name), std::string::npos);
    ASSERT_TRUE(rink->venues[0]->weeklySchedule(kThisWeek)->items()) << "the old copy stays in use";
    if (!kind.storedAs.empty()) {
      const Path path = kStore + "/" + kind.storedAs;
      ASSERT_EQ(sim.disk.snapshot().at(path), before.at(path));
    }
    sim.http.forget(kind.url);
    refreshBoth();
    ASSERT_EQ(model().errorKind(), DownloadErrorKind::noError);
    ASSERT_EQ(rink->errorKind(), DownloadErrorKind::noError);
    ASSERT_EQ(rink->errorLog(), "");
    if (kind.storedAs.empty()) return;
    ASSERT_EQ(stored(kind.storedAs), site.files().at(kind.url));
  }

  RinkData* rink = nullptr;
};

TEST_F(DamagedFilesTest, AFileCutAtAnyLengthIsRefusedAndTheNextGoodOneHeals) {
  for (const FileKindCase& kind : kinds()) {
    const std::size_t size = site.files().at(kind.url).size();
    for (std::size_t length = 0; length < size; ++length) {
      SCOPED_TRACE(kind.url + " cut at " + std::to_string(length));
      ASSERT_NO_FATAL_FAILURE(sufferAndHeal(kind, [&](const Bytes& whole) { return cutAt(whole, length); }));
    }
  }
}

TEST_F(DamagedFilesTest, HostileCountsAndLengthsAreRefused) {
  const Bytes hostile[] = {{4, 0xFF, 0xFF, 0xFF, 0x7F},
                           {8, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F},
                           {9, 1, 1, 1, 1, 1, 1, 1, 1, 1},
                           {0x80}};
  for (const FileKindCase& kind : kinds()) {
    for (const Bytes& count : hostile) {
      SCOPED_TRACE(kind.url + " with a length byte of " + std::to_string(count[0]));
      ASSERT_NO_FATAL_FAILURE(sufferAndHeal(kind, [&](const Bytes& whole) {
        Bytes bad = cutAt(whole, kind.countOffset);
        bad.insert(bad.end(), count.begin(), count.end());
        bad.insert(bad.end(), whole.begin() + static_cast<std::ptrdiff_t>(kind.countOffset) + 2, whole.end());
        return bad;
      }));
    }
    if (kind.storedAs.empty()) continue;
    ASSERT_NO_FATAL_FAILURE(sufferAndHeal(kind, [](const Bytes& whole) {
      return overwrite(whole, 0, Bytes(8, 0xFF));
    })) << "a date that is no number";
  }
}

TEST_F(DamagedFilesTest, AnUndecodableWeekIsAFailedOne) {
  publishAllAnew();
  sim.http.serve(kinds().back().url, {});
  refresh(*rink);
  EXPECT_EQ(rink->venues[0]->weeklySchedule(kThisWeek)->downloadStatus(),
            DownloadStatus::failed("Invalid data in venue-1_week-2026-03-08.b1 (the data ends early)"));
}

TEST_F(DamagedFilesTest, DamagedStoredFilesCountAsMissingEvenIfTheFirstRequestFails) {
  for (const FileKindCase& kind : kinds()) {
    if (kind.storedAs.empty()) continue;
    SCOPED_TRACE(kind.storedAs);
    const auto date = *storedDateOf(kind.storedAs);
    quit();
    const Bytes whole = *stored(kind.storedAs);
    EXPECT_TRUE(sim.disk.write(kStore + "/" + kind.storedAs, cutAt(whole, whole.size() - 1)).ok());
    EXPECT_TRUE(sim.disk.setAttributes(kStore + "/" + kind.storedAs, {date, std::nullopt}).ok());
    sim.http.serveStatus(kind.url, 500);
    sim.http.clearRequests();
    start();
    sim.world.runFor(0);
    rink = &show(7);
    if (rink->venues.size() > 0) {
      if (const auto week = rink->venues[0]->weeklySchedule(kThisWeek)) week->items();
    }
    sim.world.runFor(1);
    EXPECT_GE(sim.http.requestCount(kind.url), 1U);
    EXPECT_TRUE(engine->logged("Unable to decode file: " + kStore + "/" + kind.storedAs));
    sim.http.forget(kind.url);
    refreshBoth();
    refreshBoth();
    rink = &show(7);
    ASSERT_EQ(rink->venues.size(), 2U);
    EXPECT_TRUE(rink->venues[0]->weeklySchedule(kThisWeek)->items());
    EXPECT_EQ(stored(kind.storedAs), whole);
    EXPECT_EQ(model().rinkList.size(), 2U);
    EXPECT_EQ(model().sessionName(0), "Ice Making");
  }
}

}  // namespace
}  // namespace tarvel
