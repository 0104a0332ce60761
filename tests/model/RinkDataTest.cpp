#include "ModelFixture.h"

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;

class RinkDataTest : public ModelFixture {
 protected:
  RinkDataTest() { model.mergeRinkList(decodeRinkList(site.rinkList())); }
  RinkContext context() { return {sim.services, *log, clock, refresher, kFolder}; }
  std::shared_ptr<RinkData> fromState(const Dictionary& state) {
    return RinkData::fromState(context(), state);
  }
};

TEST_F(RinkDataTest, TheStateComesBackAsItWasKept) {
  Dictionary state;
  state["rinkID"] = 7;
  state["firstWeek"] = packedDate(2026, 3, 8);
  state["lastWeek"] = packedDate(2026, 4, 5);
  state["dismissedNotices"] = PropertyList::Array{5, 9};
  state["errorKind"] = 2;
  state["mismatchError"] = true;
  state["prevMismatchError"] = true;
  state["errorLog"] = "entry";
  for (const char* key : {"mainFileDate", "noticesFileDate", "photosFileDate", "lastRefreshTimeStamp",
                          "errorTimeStamp", "lastViewed"}) {
    state[key] = Instant{790'000'000.0 + std::string_view(key).size()};
  }
  state["chimeVenueID"] = 1;
  state["weeklyVenueID"] = 3;
  state["dailyVenueIDs"] = PropertyList::Array{3, 1};
  EXPECT_EQ(fromState(state)->dictionary(), state);
  const auto reparsed = PropertyList::parse(*PropertyList(state).xml());
  EXPECT_EQ(fromState(*reparsed->dictionary())->dictionary(), state);
}

TEST_F(RinkDataTest, WhatIsMissingOrOfAnotherTypeTakesItsDefault) {
  Dictionary wrong;
  for (const auto& [key, value] : fromState({})->dictionary())
    wrong[key] = value.text() ? PropertyList(1) : PropertyList("text");
  for (const char* key : {"mainFileDate", "noticesFileDate", "photosFileDate", "lastRefreshTimeStamp",
                          "errorTimeStamp", "lastViewed"}) {
    wrong[key] = true;
  }
  Dictionary beyond{{"firstWeek", std::int64_t{1} << 40},
                    {"lastWeek", -5},
                    {"errorKind", 4},
                    {"dailyVenueIDs", PropertyList::Array{1, "x"}}};
  for (const Dictionary& state : {Dictionary{}, wrong, beyond}) {
    const auto rink = fromState(state);
    EXPECT_EQ(rink->rinkID, 0);
    EXPECT_EQ(rink->firstWeek, packedDate(2026, 3, 1)) << "the week before the current one";
    EXPECT_EQ(rink->lastWeek, packedDate(2026, 3, 8));
    EXPECT_EQ(rink->refreshState.errorKind, DownloadErrorKind::noError);
    EXPECT_EQ(rink->refreshState.errorLog, "");
    EXPECT_FALSE(rink->refreshState.mismatchError || rink->refreshState.prevMismatchError);
    EXPECT_FALSE(rink->mainFileDate || rink->noticesFileDate || rink->photosFileDate || rink->lastViewed ||
                 rink->refreshState.lastRefreshTimeStamp || rink->refreshState.errorTimeStamp);
    EXPECT_TRUE(rink->dailyVenueIDs.empty() && rink->dismissedNotices.empty());
    EXPECT_EQ(rink->chimeVenueID + rink->weeklyVenueID, 0);
  }
}

TEST_F(RinkDataTest, TheWeekRangeBeginsAWeekAgoAtTheEarliest) {
  const auto clamped = [&](PackedDate first, PackedDate last) {
    const auto rink = fromState({{"firstWeek", first}, {"lastWeek", last}});
    return std::pair(rink->firstWeek, rink->lastWeek);
  };
  using Range = std::pair<PackedDate, PackedDate>;
  const PackedDate ago = packedDate(2026, 3, 1), now = packedDate(2026, 3, 8), later = packedDate(2026, 5, 3);
  EXPECT_EQ(clamped(packedDate(2025, 1, 5), later), Range(ago, later));
  EXPECT_EQ(clamped(now, later), Range(now, later));
  EXPECT_EQ(clamped(packedDate(2025, 1, 5), ago), Range(ago, ago));
  EXPECT_EQ(clamped(packedDate(2025, 1, 5), packedDate(2026, 2, 22)), Range(ago, now));
}

TEST_F(RinkDataTest, APromiseReadBackToTheSecondIsMadeExactByTheStoredFile) {
  const Instant exact{792'000'000.75};
  store("rink-7/main.b1", {}, exact);
  EXPECT_EQ(fromState({{"rinkID", 7}, {"mainFileDate", Instant{792'000'000.0}}})->mainFileDate, exact);
  const Instant other{792'000'001.0};
  EXPECT_EQ(fromState({{"rinkID", 7}, {"mainFileDate", other}})->mainFileDate, other);
  EXPECT_EQ(fromState({{"rinkID", 12}, {"mainFileDate", other}})->mainFileDate, other);
}

TEST_F(RinkDataTest, TheRinksClockRunsOnceAMinuteAndTellsTheDateFirst) {
  const auto rink = model.rinkData(7);  // America/Denver, on the day when summer time begins
  EXPECT_EQ(announced(), (Texts{"rink list changed", "current date changed", "current time of day changed",
                                "time zone changed"}));
  EXPECT_TRUE(sim.console.printed("RinkData for rinkID 7: setTimeZone to America/Denver"));
  EXPECT_EQ(rink->dateNow(), packedDate(2026, 3, 8));
  EXPECT_EQ(rink->timeNow(), 6 * 60);

  EXPECT_EQ(std::pair(rink->firstWeek, rink->lastWeek),
            std::pair(packedDate(2026, 3, 8), packedDate(2026, 3, 8)));
  sim.pretendTime.setOffset(-7 * 86'400.0);
  EXPECT_EQ(model.rinkData(12)->firstWeek, packedDate(2026, 3, 1));
  EXPECT_EQ(model.rinkData(12)->dateNow(), packedDate(2026, 3, 1));
  announced();

  const Instant noon = sim.world.now();
  const std::tuple<double, Texts, PackedDate, std::int64_t> steps[] = {
      {59.9, {}, packedDate(2026, 3, 8), 360},
      {60.0, {"current time of day changed"}, packedDate(2026, 3, 8), 361},
      {61.0, {}, packedDate(2026, 3, 8), 361},
      {-3 * 3600.0 - 60, {"current time of day changed"}, packedDate(2026, 3, 8), 119},  // 1:59 am
      {-3 * 3600.0, {"current time of day changed"}, packedDate(2026, 3, 8), 180},       // 3:00 am
      {18 * 3600.0, {"current date changed", "current time of day changed"}, packedDate(2026, 3, 9), 0},
      {42 * 3600.0, {"current date changed"}, packedDate(2026, 3, 10), 0},
  };
  for (const auto& [seconds, posted, date, time] : steps) {
    rink->updateTimeWithNow(noon + seconds);
    EXPECT_EQ(announced(), posted) << seconds;
    EXPECT_EQ(rink->dateNow(), date) << seconds;
    EXPECT_EQ(rink->timeNow(), time) << seconds;
  }
}

TEST_F(RinkDataTest, AZoneIsAppliedWhenTheCatalogueChangesIt) {
  const auto rink = model.rinkData(7);
  announced();
  rink->setTimeZone();
  EXPECT_EQ(announced(), Texts{}) << "the same zone";
  site.rinks[0].record.timeZone = "Asia/Tokyo";
  model.mergeRinkList(decodeRinkList(site.rinkList()));
  EXPECT_EQ(rink->timeZone()->identifier(), "Asia/Tokyo");
  EXPECT_EQ(announced(), (Texts{"rink info changed", "time zone changed", "rink list changed"}));
  EXPECT_EQ(rink->timeNow(), 6 * 60) << "within a minute already seen nothing is worked out anew";
  rink->updateTimeWithNow(sim.world.now() + 60);
  EXPECT_EQ(rink->timeNow(), 21 * 60 + 1);

  sim.world.setMachineZone(*TimeZone::named("Europe/Paris"));
  for (const char* unknown : {"", "Nowhere/Land", "../etc/passwd"}) {
    site.rinks[0].record.timeZone = unknown;
    model.mergeRinkList(decodeRinkList(site.rinkList()));
    EXPECT_EQ(rink->timeZone()->identifier(), "Europe/Paris") << unknown;
  }
}

TEST_F(RinkDataTest, ARinkWithoutAZoneFollowsTheMachines) {
  site.rinks[0].record.timeZone = "";
  model.mergeRinkList(decodeRinkList(site.rinkList()));
  const auto rink = model.rinkData(7), elsewhere = model.rinkData(12);
  clock.start();
  sim.world.runFor(30.0);
  announced();
  sim.world.setMachineZone(*TimeZone::named("Pacific/Kiritimati"));
  EXPECT_EQ(announced(), Texts{}) << "before the minute is over";
  sim.world.runFor(31.0);
  EXPECT_EQ(announced(), (Texts{"current date changed", "current time of day changed", "time zone changed",
                                "current time of day changed"}));
  EXPECT_EQ(rink->timeZone()->identifier(), "Pacific/Kiritimati");
  EXPECT_EQ(rink->dateNow(), packedDate(2026, 3, 9));
  EXPECT_EQ(rink->timeNow(), 2 * 60 + 1);
  EXPECT_EQ(elsewhere->timeZone()->identifier(), "Europe/Oslo");
  sim.world.runFor(60.0);
  EXPECT_EQ(announced(), (Texts{"current time of day changed", "current time of day changed"}));
}

TEST_F(RinkDataTest, ARinkThatTheCatalogueLearnsOfLaterIsJoinedToItsRecord) {
  site.rinks.push_back(site.rinks[1]);
  site.rinks.back().record.rinkID = 90;
  site.rinks.back().record.name = "New";
  const auto rink = model.rinkData(90);
  EXPECT_EQ(rink->refreshName(), "unknown rink");
  EXPECT_EQ(rink->timeZone()->identifier(), TimeZone::utc().identifier());
  model.mergeRinkList(decodeRinkList(site.rinkList()));
  EXPECT_EQ(rink->refreshName(), "New");
  EXPECT_EQ(rink->timeZone()->identifier(), "Europe/Oslo");
  EXPECT_TRUE(sim.console.printed("rinkInfo changed"));
}

TEST_F(RinkDataTest, ANotificationUnderWayMayOutliveTheModel) {
  auto world = std::make_unique<SimServices>();
  {
    ClockTimer ownClock(world->services);
    RecordingRefresher ownRefresher;
    DataModel own(world->services, *log, ownClock, kFolder, "");
    own.setRefresher(ownRefresher);
    own.mergeRinkList(decodeRinkList(site.rinkList()));
    own.rinkData(7);
    own.rinkData(12);
    site.rinks.pop_back();
    own.mergeRinkList(decodeRinkList(site.rinkList()));
  }
  EXPECT_EQ(RinkData::liveCount(), 2) << "the rinks that were announced";
  world.reset();
  EXPECT_EQ(RinkData::liveCount(), 0);
}

TEST_F(RinkDataTest, TheStoredHeaderIsReadOnceAndRequestedUnlessItIsThePromisedOne) {
  const struct {
    const char* what;
    bool stored;
    std::optional<Instant> promised;
    std::size_t venues;
    Texts requests;
  } cases[] = {{"unreadable", true, Instant{792'000'000.75}, 0, {"7: /main.b1"}},
               {"missing", false, Instant{792'000'000.75}, 0, {"7: /main.b1"}},
               {"as promised", true, Instant{792'000'000.75}, 2, {}},
               {"stale", true, Instant{792'000'001.75}, 2, {"7: /main.b1"}},
               {"never promised", true, std::nullopt, 2, {"7: /main.b1"}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    (void)sim.disk.remove(kFolder + "/rink-7");
    if (c.stored) store("rink-7/main.b1", site.rinks[0].main(), site.rinks[0].mainDate.actual);
    const auto rink = RinkData::create(context(), 7, model.rinkInfo(7));
    rink->mainFileDate = c.promised;
    announced();
    if (c.what == std::string_view("unreadable")) {
      sim.disk.failOperation(1, MemoryFileSystem::Repeat::once,
                             {MemoryFileSystem::Operation::read, "main.b1"});
    }
    for (int i = 0; i < 2; ++i) rink->readMainFile();
    EXPECT_EQ(taken(), c.requests);
    EXPECT_EQ(rink->venues.size(), c.venues);
    EXPECT_TRUE(rink->mainFileRead);
    EXPECT_EQ(announced(), Texts{});
  }
}

TEST_F(RinkDataTest, AStoredHeaderFillsTheRink) {
  site.rinks[0].firstWeek = packedDate(2025, 12, 7);
  site.rinks[0].venues[1].record = {3, static_cast<VenueKind>(8), "Studio", "upstairs", -2};
  std::swap(site.rinks[0].venues[0], site.rinks[0].venues[1]);  // a server that doesn't sort
  site.rinks[0].otherFiles = {{"notices.b1", {3.5}},
                              {"photoCollection.b1", {4.5}},
                              {"venue-9_schedules.b1", {5.5}},
                              {"venue-1_schedules.b2", {6.5}},
                              {"../venue-1_schedules.b1", {7.5}}};
  const auto rink = storedRink(site.rinks[0]);
  rink->readMainFile();
  EXPECT_EQ(taken(), Texts{});
  EXPECT_EQ(rink->firstWeek, packedDate(2026, 3, 1));
  EXPECT_EQ(rink->lastWeek, packedDate(2026, 3, 22));
  EXPECT_EQ(rink->noticesFileDate, Instant{3.5});
  EXPECT_EQ(rink->photosFileDate, Instant{4.5});
  ASSERT_EQ(rink->venues.size(), 2U);
  EXPECT_EQ(rink->venue(1)->schedulesFileDate, site.rinks[0].venues[1].schedulesDate.actual);
  const Venue& studio = *rink->venues[1];
  EXPECT_EQ(std::tie(studio.venueID, studio.venueKind, studio.name, studio.note, studio.displayOrder),
            std::make_tuple(3, VenueKind::other, "Studio", "upstairs", -2));
  EXPECT_EQ(rink->venue(2), nullptr);
  EXPECT_EQ(rink->photosFolder(), "photos");
  ASSERT_TRUE(rink->coverPhotoCache);
  EXPECT_EQ(rink->coverPhotoCache->photoID, 41);
  EXPECT_EQ(rink->coverPhotoCache->title + rink->coverPhotoCache->descr, "CoverThe hall");
  EXPECT_EQ(rink->coverPhotoCache->versions,
            (std::vector<ImageVersion>{{{640.0, 480.0}, 12'345, {794'000'000.5}}}));

  announced();
  rink->setPhotosFolder("elsewhere");
  EXPECT_EQ(announced(), Texts{}) << "no collection has been read that could depend on it";
  rink->photosFileRead = true;
  rink->setPhotosFolder("elsewhere");
  EXPECT_EQ(announced(), Texts{});
  rink->setPhotosFolder("photos");
  EXPECT_EQ(announced(), Texts{"photo collection changed"});
}

}  // namespace
}  // namespace tarvel
