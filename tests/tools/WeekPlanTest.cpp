#include "demo/WeekPlan.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "demo/DemoContent.h"

namespace tarvel::demo {
namespace {

constexpr std::uint64_t kSeed = 20;
constexpr PackedDate kToday = packedDate(2026, 11, 18);
constexpr int kMinutesPerDay = 1440;

using Week = std::vector<PlannedSession>;

int startOf(const PlannedSession& session) {
  return session.day * kMinutesPerDay + session.time;
}

/// One session follows another without overlap.
void expectSequence(const Week& week) {
  int freeFrom = 0;
  for (const PlannedSession& session : week) {
    EXPECT_GE(startOf(session), freeFrom) << session.kind;
    EXPECT_TRUE(session.day >= 0 && session.day <= 6);
    EXPECT_TRUE(session.time >= 0 && session.time < 2 * kMinutesPerDay);
    EXPECT_GT(session.duration, 0);
    freeFrom = startOf(session) + session.duration;
  }
}

/// From morning to night, and resurfaced between two sessions.
void expectBusyIce(const DemoRink& rink, const Week& week) {
  std::array<int, 7> busy{};
  const PlannedSession* before = nullptr;
  for (const PlannedSession& session : week) {
    const bool resurfaces = session.kind == "resurface";
    if (before && before->day == session.day) {
      EXPECT_NE(resurfaces, before->kind == "resurface") << session.day << " " << session.time;
      EXPECT_TRUE(!resurfaces || session.duration == 15);
    }
    busy.at(static_cast<std::size_t>(session.day)) += session.duration;
    before = &session;
  }
  for (const int minutes : busy) EXPECT_GE(minutes, (rink.closes - rink.opens) * 3 / 4);
}

TEST(WeekPlan, HasSequencesBusyIceEveryKindAndNightsBeyondMidnight) {
  const DemoContent content(kSeed, kToday, "");
  std::set<std::string> kinds;
  bool runsPastMidnight = false, beginsPastMidnight = false;
  for (const DemoRink& rink : content.rinks()) {
    for (const DemoVenue& venue : rink.venues) {
      for (const PackedDate weekOf : content.weeks()) {
        SCOPED_TRACE(rink.name + ", " + venue.kind + " " + venue.name + ", " + shortDateText(weekOf));
        const Week week = content.week(rink, venue, weekOf);
        expectSequence(week);
        if (venue.kind == "iceSheet" || venue.kind == "artificialIce") expectBusyIce(rink, week);
        for (const PlannedSession& session : week) {
          const bool isLate = session.time >= kMinutesPerDay;
          kinds.insert(session.kind);
          beginsPastMidnight |= isLate;
          runsPastMidnight |= !isLate && session.time + session.duration > kMinutesPerDay;
        }
      }
    }
  }
  EXPECT_EQ(kinds.size(), 19U);
  EXPECT_TRUE(runsPastMidnight && beginsPastMidnight);
}

TEST(DemoContent, OffersLastWeekToFiveWeeksOn) {
  EXPECT_EQ(DemoContent(kSeed, kToday, "").weeks().front(), packedDate(2026, 11, 8));
  EXPECT_EQ(DemoContent(kSeed, kToday, "").weeks().back(), packedDate(2026, 12, 20));
  // A Sunday begins its own week.
  EXPECT_EQ(DemoContent(kSeed, packedDate(2026, 11, 22), "").weeks().front(), packedDate(2026, 11, 15));
}

}  // namespace
}  // namespace tarvel::demo
