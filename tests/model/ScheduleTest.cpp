#include "ModelFixture.h"

namespace tarvel {
namespace {

constexpr PackedDate kWeek = packedDate(2026, 3, 8);

ScheduleItem item(SessionKind kind, std::int64_t day, std::int64_t time, std::int64_t duration,
                  std::string subtitle = {}, std::string note = {}) {
  return {{kind, day, time, duration, std::move(subtitle), std::move(note)}, {}, kWeek};
}

TEST(ScheduleItemTest, AnItemAfterMidnightBelongsToTheNextDay) {
  const std::tuple<std::int64_t, std::int64_t, PackedDate, std::int64_t> cases[] = {
      {0, 0, packedDate(2026, 3, 8), 0},
      {2, 1439, packedDate(2026, 3, 10), 1439},
      {2, 1440, packedDate(2026, 3, 11), 0},
      {6, 1500, packedDate(2026, 3, 15), 60},
      {6, 3000, packedDate(2026, 3, 15), 1560}};  // taken off once
  for (const auto& [onDay, at, date, minute] : cases) {
    const ScheduleItem tested = item(SessionKind::meeting, onDay, at, 30);
    EXPECT_EQ(tested.realDate(), date) << onDay << " " << at;
    EXPECT_EQ(tested.realTime(), minute) << onDay << " " << at;
  }
}

TEST(ScheduleItemTest, TextsOfAnItem) {
  EXPECT_EQ(
      item(SessionKind::publicSession, 6, 1500, 90, "Family Night", "Bring a friend").description(),
      "Sunday\n3/15/26\n1:00 am - 2:30 am\n(1 hr 30 min)\n\nPublic Session\nFamily Night\n\nBring a friend");
  EXPECT_EQ(item(SessionKind::hockeyStickTime, 1, 690, 60).description(),
            "Monday\n3/9/26\n11:30 am - 12:30 pm\n(1 hr)\n\nStick Time");
  EXPECT_EQ(item(SessionKind::rental, 0, 0, 45, "", "note").description(),
            "Sunday\n3/8/26\n12:00 am - 12:45 am\n(45 min)\n\nRental\n\nnote");
  EXPECT_EQ(item(SessionKind::party, 0, 0, 0).displayName(": "), "Party");
  EXPECT_EQ(item(SessionKind::party, 0, 0, 0, "Ann").displayName(": "), "Party: Ann");
  EXPECT_EQ(item(SessionKind::other, 0, 0, 0, "Ann").displayName(": "), "Ann");
  EXPECT_EQ(item(SessionKind::skatingSchool, 0, 0, 0, "Basic 1").displayName("\n"), "Basic 1");
}

class ScheduleTest : public ModelFixture {
 protected:
  std::shared_ptr<RinkData> rink() {
    const auto data = storedRink(site.rinks[0]);
    data->readMainFile();
    EXPECT_EQ(taken(), Texts{});
    return data;
  }
};

TEST_F(ScheduleTest, VenuesAreShownByOrderThenKindThenName) {
  const auto owner = rink();
  const auto venue = [&](std::string name, VenueKind kind, std::int64_t order) {
    return Venue(*owner, {1, kind, std::move(name), "", order});
  };
  const Venue ordered[] = {venue("Z", VenueKind::classRoom, -1), venue("b", VenueKind::iceSheet, 2),
                           venue("C", VenueKind::iceSheet, 2), venue("a", VenueKind::partyRoom, 2)};
  for (int a = 0; a < 4; ++a)
    for (int b = 0; b < 4; ++b) EXPECT_EQ(displaysBefore(ordered[a], ordered[b]), a < b) << a << " " << b;
  EXPECT_EQ(venue("", VenueKind::classRoom, 0).displayName(), "Classroom");
  EXPECT_EQ(venue("", VenueKind::artificialIce, 0).displayName(), "Artificial Ice");
  EXPECT_EQ(venue("Main", VenueKind::iceSheet, 0).displayName(), "Main");
}

TEST_F(ScheduleTest, StoredSchedulesServeOnlyInThePromisedVersion) {
  const auto data = rink();
  const auto venue = data->venues[0];
  EXPECT_EQ(venue->weeklySchedule(kWeek)->fileDate, site.rinks[0].venues[0].weeks[1].date.actual);
  EXPECT_EQ(venue->weeklySchedule(kWeek + 1), nullptr);
  data->firstWeek = packedDate(2026, 3, 15);
  EXPECT_EQ(venue->weeklySchedule(kWeek), nullptr) << "outside the range, though the list holds it";
  EXPECT_EQ(venue->schedulesCache->size(), 4U);
  EXPECT_EQ(taken(), Texts{});

  const auto studio = data->venues[1];
  studio->schedulesFileDate = Instant{1.0};
  EXPECT_EQ(studio->weeklySchedule(kWeek), nullptr);
  EXPECT_EQ(taken(), Texts{"7: venue-3_schedules.b1"});
  studio->schedulesFileDate = std::nullopt;
  studio->readSchedulesFile();
  EXPECT_EQ(taken(), Texts{"7: venue-3_schedules.b1"});
  studio->schedulesFileDate = site.rinks[0].venues[1].schedulesDate.actual;
  sim.disk.failOperation(1, MemoryFileSystem::Repeat::once, {MemoryFileSystem::Operation::read, "venue-3"},
                         "no luck");
  studio->readSchedulesFile();
  EXPECT_EQ(taken(), Texts{"7: venue-3_schedules.b1"});
  EXPECT_TRUE(sim.console.printed("READ FAILED: venue-3_schedules.b1 - no luck"));
  EXPECT_NE(studio->weeklySchedule(packedDate(2026, 3, 15)), nullptr);
}

TEST_F(ScheduleTest, RecordsOfOtherNamesAndVenuesAreDroppedFromAVenuesList) {
  PublishedVenue& venue = site.rinks[0].venues[0];
  const auto wrong = [&](PublishedWeek week, PackedDate weekOf) {
    week.weekOf = weekOf;
    return week;
  };
  Bytes bytes = PublishedRink::schedules({venue.record, venue.schedulesDate, {wrong(venue.weeks[3], kWeek)}});
  // The one record's name becomes that of another venue, "venue-2_...".
  const std::string text(bytes.begin(), bytes.end());
  bytes[text.find("venue-1") + 6] = '2';
  const auto data = rink();
  store("rink-7/venue-1_schedules.b1", bytes, venue.schedulesDate.actual);
  data->venues[0]->readSchedulesFile();
  EXPECT_TRUE(data->venues[0]->schedulesFileRead);
  EXPECT_TRUE(data->venues[0]->schedulesCache->empty());
}

TEST_F(ScheduleTest, ItemsComeFromThePromisedFileAndAreAskedForOnce) {
  const auto data = rink();
  const auto week = data->venues[0]->weeklySchedule(kWeek);
  const auto items = week->items();
  ASSERT_TRUE(items);
  EXPECT_EQ(items->size(), 3U);
  EXPECT_EQ((*items)[2]->subtitle, "Family");
  EXPECT_EQ((*items)[2]->weeklySchedule.lock(), week);
  EXPECT_EQ(week->items(), items) << "decoded once and shared";
  EXPECT_EQ(ScheduleItem::liveCount(), 3);

  const auto stale = data->venues[0]->weeklySchedule(packedDate(2026, 3, 15));
  store("rink-7/venue-1_week-2026-03-15.b1", PublishedRink::week(site.rinks[0].venues[0].weeks[2]), {9.5});
  EXPECT_EQ(stale->items(), nullptr) << "a newer file than the one promised";
  EXPECT_EQ(taken(), Texts{"7: venue-1_week-2026-03-15.b1"});
  using Kind = DownloadStatus::Kind;
  for (const Kind kind : {Kind::requested, Kind::invalidData, Kind::failed}) {
    announced();
    stale->setDownloadStatus({kind, "why"});
    EXPECT_EQ(announced(), Texts{"weekly schedule changed"});
    EXPECT_EQ(stale->items(), nullptr);
    EXPECT_EQ(taken(), Texts{}) << "no second request while one runs, nor after it failed";
  }
}

}  // namespace
}  // namespace tarvel
