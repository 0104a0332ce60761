#include <gtest/gtest.h>

#include "EngineFixture.h"
#include "foundation/DecodeError.h"
#include "refresh/RootFile.h"
#include "simulation/ports/CorruptBytes.h"
#include "support/Encoded.h"
#include "support/PublishedSite.h"

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

TEST_F(DamagedFilesTest, ADamagedFileIsRefusedAndTheNextGoodOneHeals) {
  using Damage = std::function<Bytes(const Bytes&, std::size_t countOffset)>;
  const std::pair<const char*, Damage> damages[] = {
      {"nothing", [](const Bytes&, std::size_t) { return Bytes(); }},
      {"all but a byte", [](const Bytes& whole, std::size_t) { return cutAt(whole, whole.size() - 1); }},
      {"a huge count", [](const Bytes& whole, auto at) { return encoded(cutAt(whole, at), INT64_MAX); }},
      {"no date", [](const Bytes& whole, std::size_t) { return overwrite(whole, 0, Bytes(8, 0xFF)); }}};
  for (const FileKindCase& kind : kinds()) {
    for (const auto& [name, damage] : damages) {
      if (kind.storedAs.empty() && name == std::string("no date")) continue;  // an index has none
      SCOPED_TRACE(kind.url + ": " + name);
      ASSERT_NO_FATAL_FAILURE(
          sufferAndHeal(kind, [&](const Bytes& whole) { return damage(whole, kind.countOffset); }));
    }
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

auto fieldsOf(const Release& release) {
  return std::tie(release.date, release.appVersion, release.osMinimumVersion, release.url);
}

const Release kFirst{packedDate(2025, 1, 2), 5LL << 48, 1LL << 48, "https://a"};
const Release kSecond{packedDate(2026, 1, 2), 6LL << 48, 2LL << 48, "https://b"};

Bytes entry(const Release& release) {
  return encoded(release.date, release.appVersion, release.osMinimumVersion, release.url);
}

Bytes operator+(const Bytes& a, const Bytes& b) {
  return encoded(a, b);
}

Bytes releaseTables() {
  return encoded(2, entry(kFirst), entry(kSecond), 1, entry(kFirst));
}

Bytes beta() {
  return encoded(true, entry(kSecond));
}

TEST(RootFileTest, TheTailsAreOptional) {
  PublishedSite site = PublishedSite::sample();
  site.minimumVersion = 3;
  const Bytes head = site.root();
  const std::tuple<Bytes, std::size_t, bool> cases[] = {{head, 0, false},
                                                        {head + releaseTables(), 2, false},
                                                        {head + releaseTables() + Bytes{0}, 2, false},
                                                        {head + releaseTables() + beta(), 2, true}};
  for (const auto& [file, releases, hasBeta] : cases) {
    const RootFile root = decodeRootFile(file);
    EXPECT_EQ(root.currentVersion, 6LL << 48);
    EXPECT_EQ(root.minimumVersion, 3);
    EXPECT_EQ(root.applicationWebsiteURL, "https://tarvel.test");
    ASSERT_EQ(root.files.size(), 3U);
    EXPECT_EQ(root.files[2].relPath, "rinks.b1");
    EXPECT_EQ(root.files[2].modDate, site.rinksDate.actual);
    ASSERT_EQ(root.releases.size(), releases);
    if (releases > 0) {
      EXPECT_EQ(fieldsOf(root.releases[0]), fieldsOf(kFirst));
      EXPECT_EQ(fieldsOf(root.releases[1]), fieldsOf(kSecond));
    }
    ASSERT_EQ(root.beta.has_value(), hasBeta);
    EXPECT_EQ(fieldsOf(root.beta.value_or(kSecond)), fieldsOf(kSecond));
  }
}

TEST(RootFileTest, AFileThatEndsWithinATailIsADecodeError) {
  const Bytes head = PublishedSite::sample().root();
  const Bytes tables = head + releaseTables();
  const Bytes whole = tables + beta();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    if (length == head.size() || length == tables.size()) continue;
    EXPECT_THROW(decodeRootFile(cutAt(whole, length)), DecodeError) << length;
  }
  const Bytes master = encoded("main.b1", 1.5);
  for (std::size_t length = 0; length < master.size(); ++length)
    EXPECT_THROW(decodeMasterFile(cutAt(master, length)), DecodeError) << length;
  EXPECT_THROW(decodeRootFile(head + Bytes{4, 0xFF, 0xFF, 0xFF, 0x7F}), DecodeError);
  EXPECT_THROW(decodeRootFile(head + Bytes{0, 4, 0xFF, 0xFF, 0xFF, 0x7F}), DecodeError);
}

TEST(RootFileDeathTest, ANegativeCountStopsTheProgram) {
  const Bytes head = PublishedSite::sample().root();
  EXPECT_DEATH(decodeRootFile(head + Bytes{0xFF, 0xFF}), "negative count");
  EXPECT_DEATH(decodeRootFile(head + Bytes{0, 0xFF, 0xFF}), "negative count");
  EXPECT_DEATH(decodeRootFile(encoded(0, 0, 0, 0, "", -2)), "negative count");
}

}  // namespace
}  // namespace tarvel
