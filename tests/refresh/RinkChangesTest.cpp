#include "EngineFixture.h"

namespace tarvel {
namespace {

/// What a refresh does when the server's content has changed since the last one.
class RinkChangesTest : public EngineFixture {
 protected:
  RinkChangesTest() {
    startWithCatalogue();
    rink = &show(7);
    sim.http.clearRequests();
  }
  PublishedRink& published() { return site.rinks[0]; }
  /// Announcements of the rink in a refresh after main.b1 has changed.
  Texts refreshMain() {
    published().mainDate.publishAnew();
    const NotificationRecorder recorder(sim.notifications, sim.world);
    refresh(*rink);
    const auto names = recorder.names();
    return {names.begin(), names.end()};
  }
  std::size_t fetched(const std::string& name) { return sim.http.requestCount(published().url(name)); }
  void put(const std::string& name) {
    EXPECT_TRUE(sim.disk.write(kStore + "/rink-7/" + name, Bytes{1}).ok());
  }

  RinkData* rink = nullptr;
};

TEST_F(RinkChangesTest, AVenueThatHasGoneTakesItsWeeksWithIt) {
  published().venues.pop_back();
  EXPECT_EQ(refreshMain(), (Texts{"venues changed", "cover photo changed", "refresh status changed"}));
  ASSERT_EQ(rink->venues.size(), 1U);
  EXPECT_FALSE(stored("rink-7/venue-3_week-2026-03-08.b1"));
  EXPECT_TRUE(stored("rink-7/venue-3_schedules.b1")) << "small, and may come back";
  EXPECT_TRUE(stored("rink-7/venue-1_week-2026-03-08.b1"));
  EXPECT_TRUE(sim.console.printed("removing file: " + kStore + "/rink-7/venue-3_week-2026-03-08.b1"));
  published().venues.clear();
  refreshMain();
  EXPECT_TRUE(rink->venues.empty());
}

TEST_F(RinkChangesTest, VenuesAreMergedInPlace) {
  const auto main = rink->venues[0], studio = rink->venues[1];
  using Change = std::function<void(VenueRecord&)>;
  for (const Change& change :
       {Change([](auto& v) { v.name = "Renamed"; }), Change([](auto& v) { v.note = "x"; }),
        Change([](auto& v) { v.displayOrder = 9; }),
        Change([](auto& v) { v.venueKind = VenueKind::partyRoom; })}) {
    change(published().venues[0].record);
    EXPECT_EQ(refreshMain()[0], "venues changed");
  }
  EXPECT_EQ(main->name, "Renamed");
  EXPECT_EQ(main->venueKind, VenueKind::partyRoom);
  EXPECT_EQ(refreshMain()[0], "cover photo changed") << "the same venues";
  PublishedVenue added = published().venues[0];
  added.record.venueID = 2;
  published().venues.insert(published().venues.begin() + 1, added);
  refreshMain();
  ASSERT_EQ(rink->venues.size(), 3U);
  EXPECT_EQ(rink->venues[0], main);
  EXPECT_EQ(rink->venues[2], studio);
  EXPECT_EQ(fetched("venue-2_schedules.b1"), 0U) << "never fetched, so it waits for a view";
}

TEST_F(RinkChangesTest, AChangedWeekIsFetchedIfItIsNearOrAtHand) {
  auto& venue = published().venues[0];
  for (PublishedWeek& week : venue.weeks) {
    week.date.publishAnew();
    week.items.resize(1);
  }
  venue.schedulesDate.publishAnew();
  refreshMain();
  EXPECT_EQ(sim.http.requests().size(), 5U) << "the three indexes, this week and the next";
  EXPECT_EQ(rink->venues[0]->weeklySchedule(kThisWeek)->items()->size(), 1U);
  EXPECT_EQ(rink->venues[0]->weeklySchedule(kLaterWeek)->items(), nullptr);
  sim.world.runFor(0);
  for (PublishedWeek& week : venue.weeks) week.date.publishAnew();
  venue.schedulesDate.publishAnew();
  refreshMain();
  EXPECT_EQ(fetched("venue-1_week-2026-03-22.b1"), 2U) << "someone has looked at it";
  EXPECT_EQ(fetched("venue-1_week-2026-03-01.b1"), 0U);
}

TEST_F(RinkChangesTest, AWeekThatIsNoLongerListedStaysUntilItLeavesTheRange) {
  auto& venue = published().venues[0];
  venue.weeks.erase(venue.weeks.begin() + 1);
  venue.schedulesDate.publishAnew();
  refreshMain();
  EXPECT_TRUE(rink->venues[0]->weeklySchedule(kThisWeek)->items());
  published().firstWeek = kNextWeek;
  EXPECT_EQ(refreshMain()[0], "date range changed");
  EXPECT_EQ(rink->venues[0]->schedulesCache->size(), 2U);
  EXPECT_FALSE(stored("rink-7/venue-1_week-2026-03-08.b1"));
  EXPECT_TRUE(stored("rink-7/venue-1_week-2026-03-15.b1"));
}

TEST_F(RinkChangesTest, TheRangeFollowsTheServerFromAWeekAgoOn) {
  using Range = std::pair<PackedDate, PackedDate>;
  const std::tuple<Range, Range, bool> cases[] = {
      {{kLastWeek, kLaterWeek}, {kLastWeek, kLaterWeek}, false},
      {{packedDate(2025, 1, 5), kLaterWeek}, {kLastWeek, kLaterWeek}, false},
      {{kThisWeek, packedDate(2026, 5, 3)}, {kThisWeek, packedDate(2026, 5, 3)}, true},
      {{packedDate(2025, 1, 5), packedDate(2025, 2, 2)}, {kLastWeek, kThisWeek}, true}};
  for (const auto& [offered, taken, announced] : cases) {
    std::tie(published().firstWeek, published().lastWeek) = offered;
    EXPECT_EQ(refreshMain()[0] == "date range changed", announced);
    EXPECT_EQ(Range(rink->firstWeek, rink->lastWeek), taken);
  }
}

TEST_F(RinkChangesTest, AFolderOnAnotherWeekThanThePromisedIsBroughtUpToDate) {
  const Path week = kStore + "/rink-7/venue-1_week-2026-03-15.b1";
  (void)sim.disk.remove(week);
  refresh(*rink);
  EXPECT_EQ(fetched("venue-1_week-2026-03-15.b1"), 1U) << "a week of now or next that is missing";
  EXPECT_TRUE(sim.disk.setAttributes(week, {Instant{5.0}, std::nullopt}).ok());
  refresh(*rink);
  EXPECT_EQ(fetched("venue-1_week-2026-03-15.b1"), 2U);
  EXPECT_EQ(storedDateOf("rink-7/venue-1_week-2026-03-15.b1"), published().venues[0].weeks[2].date.actual);
}

TEST_F(RinkChangesTest, ARefreshCleansTheFolder) {
  const std::pair<const char*, bool> cases[] = {{"venue-3_week-2020-01-05.b1", true},
                                                {"venue-9_week-2026-03-29.b1", true},
                                                {"venue-9_week-2026-03-15.b1", false},
                                                {"venue-1_week-2026-03-15", true},
                                                {"venue-1_week-2026-03-15.b2", true},
                                                {"venue-1_week-2026-03-15.old.b1", false},
                                                {"venue-1_week-2020-01-05.old.b1", true},
                                                {"venue-1.schedules.b1", true},
                                                {"venues.x.y", true},
                                                {"venue.a.b.c", false},
                                                {"venue-9_schedules.b1", false},
                                                {"old-venue.x.y", false},
                                                {"notices.b1", false},
                                                {"picture.jpg", false},
                                                {".venue-3_week-2020-01-05.b1", false}};
  for (const auto& [file, goes] : cases) put(file);
  const std::string folder = "venue-3_week-2020-01-05.x.b1";
  EXPECT_TRUE(sim.disk.createFolders(kStore + "/rink-7/" + folder).ok());
  refresh(*rink);
  for (const auto& [file, goes] : cases) EXPECT_EQ(!stored("rink-7/" + std::string(file)), goes) << file;
  EXPECT_TRUE(sim.disk.info(kStore + "/rink-7/" + folder));
  EXPECT_TRUE(sim.console.printed("removing file: " + kStore + "/rink-7/venue-3_week-2020-01-05.b1"));
}

}  // namespace
}  // namespace tarvel
