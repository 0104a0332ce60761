#include "demo/WeekPlan.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <set>

#include "demo/DemoContent.h"

namespace tarvel::demo {
namespace {

constexpr std::uint64_t kSeed = 20;
constexpr PackedDate kToday = packedDate(2026, 11, 18);
constexpr int kMinutesPerDay = 1440;

using Week = std::vector<PlannedSession>;
using Visit = std::function<void(const DemoRink&, const DemoVenue&, PackedDate, const Week&)>;

void eachWeek(const DemoContent& content, const Visit& visit) {
  for (const DemoRink& rink : content.rinks()) {
    for (const DemoVenue& venue : rink.venues) {
      for (const PackedDate weekOf : content.weeks()) {
        SCOPED_TRACE(rink.name + ", " + venue.kind + " " + venue.name + ", " + shortDateText(weekOf));
        visit(rink, venue, weekOf, content.week(rink, venue, weekOf));
      }
    }
  }
}

bool isIce(const DemoVenue& venue) {
  return venue.kind == "iceSheet" || venue.kind == "artificialIce";
}
int startOf(const PlannedSession& session) {
  return session.day * kMinutesPerDay + session.time;
}

TEST(WeekPlan, SessionsFollowEachOtherWithoutOverlap) {
  eachWeek({kSeed, kToday, ""}, [](const DemoRink&, const DemoVenue&, PackedDate, const Week& week) {
    int freeFrom = 0;
    for (const PlannedSession& session : week) {
      EXPECT_GE(startOf(session), freeFrom) << session.kind;
      EXPECT_TRUE(session.day >= 0 && session.day <= 6);
      EXPECT_TRUE(session.time >= 0 && session.time < 2 * kMinutesPerDay);
      EXPECT_GT(session.duration, 0);
      freeFrom = startOf(session) + session.duration;
    }
  });
}

TEST(WeekPlan, IceIsResurfacedBetweenSessions) {
  eachWeek({kSeed, kToday, ""}, [](const DemoRink&, const DemoVenue& venue, PackedDate, const Week& week) {
    if (!isIce(venue)) return;
    for (std::size_t i = 1; i < week.size(); ++i) {
      if (week[i].day != week[i - 1].day) continue;
      const bool thisOne = week[i].kind == "resurface";
      EXPECT_NE(thisOne, week[i - 1].kind == "resurface") << week[i].day << " " << week[i].time;
      EXPECT_TRUE(!thisOne || week[i].duration == 15);
    }
  });
}

TEST(WeekPlan, IceIsBusyFromMorningToNight) {
  eachWeek({kSeed, kToday, ""},
           [](const DemoRink& rink, const DemoVenue& venue, PackedDate, const Week& week) {
             if (!isIce(venue)) return;
             std::array<int, 7> busy{};
             for (const PlannedSession& session : week)
               busy.at(static_cast<std::size_t>(session.day)) += session.duration;
             for (const int minutes : busy) EXPECT_GE(minutes, (rink.closes - rink.opens) * 3 / 4);
           });
}

TEST(WeekPlan, TheCatalogueShowsEveryKindAndNightsBeyondMidnight) {
  std::set<std::string> kinds;
  bool runsPastMidnight = false;
  bool beginsPastMidnight = false;
  eachWeek({kSeed, kToday, ""}, [&](const DemoRink&, const DemoVenue&, PackedDate, const Week& week) {
    for (const PlannedSession& session : week) {
      kinds.insert(session.kind);
      beginsPastMidnight = beginsPastMidnight || session.time >= kMinutesPerDay;
      runsPastMidnight = runsPastMidnight ||
                         (session.time < kMinutesPerDay && session.time + session.duration > kMinutesPerDay);
    }
  });
  EXPECT_EQ(kinds.size(), 19U);
  EXPECT_TRUE(runsPastMidnight);
  EXPECT_TRUE(beginsPastMidnight);
}

TEST(WeekPlan, WeeksAreAlikeButNotTheSame) {
  const DemoContent content(kSeed, kToday, "");
  const DemoRink& rink = content.rinks().front();
  const DemoVenue& sheet = rink.venues.front();
  const auto weeks = content.weeks();
  std::set<int> sameDays;
  std::set<int> otherDays;
  for (int day = 0; day < 7; ++day) {
    const auto ofDay = [&](PackedDate weekOf) {
      Week week = content.week(rink, sheet, weekOf);
      std::erase_if(week, [&](const PlannedSession& session) { return session.day != day; });
      return week;
    };
    for (std::size_t i = 1; i < weeks.size(); ++i)
      (ofDay(weeks[i]) == ofDay(weeks[0]) ? sameDays : otherDays).insert(day);
  }
  EXPECT_GE(sameDays.size(), 5U);
  EXPECT_GE(otherDays.size(), 1U);
}

TEST(WeekPlan, TheSeedAndTheEditionDecide) {
  const auto plan = [](std::uint64_t seed, std::uint64_t edition) {
    const DemoRink rink = demoRinks().front();
    return planWeek(rink, rink.venues.front(), {seed, packedDate(2026, 11, 15), edition});
  };
  EXPECT_EQ(plan(1, 0), plan(1, 0));
  EXPECT_NE(plan(1, 0), plan(2, 0));
  EXPECT_NE(plan(1, 0), plan(1, 1));
  EXPECT_NE(plan(1, 1), plan(1, 2));
}

TEST(DemoContent, OffersLastWeekToFiveWeeksOn) {
  EXPECT_EQ(DemoContent(kSeed, kToday, "").weeks().front(), packedDate(2026, 11, 8));
  EXPECT_EQ(DemoContent(kSeed, kToday, "").weeks().back(), packedDate(2026, 12, 20));
  // A Sunday begins its own week.
  EXPECT_EQ(DemoContent(kSeed, packedDate(2026, 11, 22), "").weeks().front(), packedDate(2026, 11, 15));
}

TEST(DemoContent, ChangesTouchWhatTheyNameAndRefuseWhatIsNotThere) {
  DemoContent content(kSeed, kToday, "");
  const std::size_t rinks = content.rinks().size();
  EXPECT_FALSE(content.renameRink(999, "X"));
  EXPECT_FALSE(content.renameRink(11, ""));
  EXPECT_TRUE(content.renameRink(11, "X"));
  EXPECT_EQ(content.rink(11)->name, "X");
  EXPECT_FALSE(content.dropVenue(11, 99));
  EXPECT_TRUE(content.dropVenue(11, 5));
  EXPECT_FALSE(content.replaceWeek(11, 5, packedDate(2026, 11, 15)));
  EXPECT_FALSE(content.replaceWeek(11, 1, packedDate(2026, 11, 16)));
  const auto week = [&](std::int64_t venue, PackedDate weekOf) {
    return content.week(*content.rink(11), content.rink(11)->venues.at(static_cast<std::size_t>(venue - 1)),
                        weekOf);
  };
  const Week before = week(1, packedDate(2026, 11, 15));
  const Week neighbour = week(2, packedDate(2026, 11, 15));
  EXPECT_TRUE(content.replaceWeek(11, 1, packedDate(2026, 11, 15)));
  EXPECT_NE(week(1, packedDate(2026, 11, 15)), before);
  EXPECT_EQ(week(2, packedDate(2026, 11, 15)), neighbour);
  EXPECT_TRUE(content.addNotice(11, "New", ""));
  EXPECT_EQ(content.notices(11).front().date, kToday);
  const auto added = content.addRink();
  ASSERT_TRUE(added);
  EXPECT_TRUE(content.removeRink(11));
  EXPECT_FALSE(content.removeRink(11));
  EXPECT_EQ(content.rinks().size(), rinks);
  EXPECT_TRUE(std::is_sorted(content.rinks().begin(), content.rinks().end(),
                             [](const DemoRink& a, const DemoRink& b) { return a.rinkID < b.rinkID; }));
}

}  // namespace
}  // namespace tarvel::demo
