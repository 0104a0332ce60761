#include "platform/TimeZone.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "platform/FatalError.h"

namespace tarvel {
namespace {

constexpr std::int64_t kSince1970 = kReferenceDateSince1970;

Instant unixTime(std::int64_t seconds) {
  return {static_cast<double>(seconds - kSince1970)};
}

std::string text(const LocalTime& t) {
  char buffer[80];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour,
                t.minute, t.second);
  return buffer;
}

TEST(TimeZone, FollowsTheClocksOfAPlace) {
  struct Case {
    const char* zone;
    std::int64_t unixSeconds;
    const char* local;
    const char* abbreviation;
  };
  const Case cases[] = {
      {"America/Denver", 1'772'960'399, "2026-03-08 01:59:59", "MST"},  // spring forward
      {"America/Denver", 1'772'960'400, "2026-03-08 03:00:00", "MDT"},
      {"America/Denver", 1'793'519'999, "2026-11-01 01:59:59", "MDT"},  // fall back
      {"America/Denver", 1'793'520'000, "2026-11-01 01:00:00", "MST"},
      {"Europe/Berlin", 1'774'746'000, "2026-03-29 03:00:00", "CEST"},
      {"Australia/Lord_Howe", 1'775'314'799, "2026-04-05 01:59:59", "+11"},  // by half an hour
      {"Australia/Lord_Howe", 1'775'314'800, "2026-04-05 01:30:00", "+1030"},
      {"Asia/Kathmandu", 1'772'960'400, "2026-03-08 14:45:00", "+0545"},
      {"America/Denver", 2'226'477'600, "2040-07-21 04:00:00", "MDT"},  // beyond the listed changes
      {"America/Denver", 2'215'069'199, "2040-03-11 01:59:59", "MST"},
      {"America/Denver", 2'215'069'200, "2040-03-11 03:00:00", "MDT"},
      {"Australia/Sydney", 2'226'477'600, "2040-07-21 20:00:00", "AEST"},
      {"America/Mexico_City", 2'226'477'600, "2040-07-21 04:00:00", "CST"},  // gave up summer time
      {"UTC", 951'782'399, "2000-02-28 23:59:59", "UTC"},
      {"UTC", -1, "1969-12-31 23:59:59", "UTC"},
  };
  for (const Case& c : cases) {
    const auto zone = TimeZone::named(c.zone);
    ASSERT_TRUE(zone) << c.zone;
    EXPECT_EQ(text(zone->local(unixTime(c.unixSeconds))), c.local) << c.zone << " " << c.unixSeconds;
    EXPECT_EQ(zone->abbreviation(unixTime(c.unixSeconds)), c.abbreviation) << c.zone << " " << c.unixSeconds;
    EXPECT_EQ(zone->identifier(), c.zone);
  }
}

TEST(TimeZone, TakesAnyNameAndInstant) {
  for (const char* name : {"", "Nowhere/Land", "../../etc/passwd", "america/denver", "America", "zone.tab"}) {
    EXPECT_FALSE(TimeZone::named(name)) << name;
  }
  for (const double odd : {1e300, -1e300, HUGE_VAL, std::nan("")}) {
    const LocalTime time = TimeZone::named("Pacific/Auckland")->local({odd});
    EXPECT_TRUE(time.year >= 1 && time.year <= 9999 && time.month >= 1 && time.day >= 1) << odd;
  }
  EXPECT_EQ(text(TimeZone::utc().local({-0.5})), "2000-12-31 23:59:59")
      << "a fraction is dropped, not rounded";
}

TEST(TimeZone, OfTheMachineFollowsTheEnvironment) {
  const char* before = std::getenv("TZ");
  const std::string previous = before ? before : "";
  const TimeZone ofMachine = TimeZone::ofMachine();
  for (const char* name : {"Asia/Tokyo", ":Asia/Tokyo"}) {
    ::setenv("TZ", name, 1);
    EXPECT_EQ(TimeZone::ofMachine().identifier(), "Asia/Tokyo");
  }
  ::unsetenv("TZ");
  const TimeZone withoutSetting = TimeZone::ofMachine();
  ::setenv("TZ", "Nowhere/Land", 1);
  EXPECT_EQ(TimeZone::ofMachine(), withoutSetting);
  before ? ::setenv("TZ", previous.c_str(), 1) : ::unsetenv("TZ");
  EXPECT_EQ(TimeZone::ofMachine(), ofMachine);
}

TEST(FatalErrorDeathTest, SaysWhere) {
  EXPECT_DEATH(fatalError("a reason"), "^Fatal error: .*TimeZoneTest\\.cpp, line [0-9]+: a reason\n$");
  EXPECT_DEATH(fatalError(), "^Fatal error: .*TimeZoneTest\\.cpp, line [0-9]+\n$");
}

}  // namespace
}  // namespace tarvel
