#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <tuple>

#include "platform/FatalError.h"
#include "platform/Instant.h"
#include "platform/TimeZone.h"
#include "simulation/ports/SeededRandom.h"

namespace tarvel {
namespace {

constexpr double kYear = 365.25 * 86'400;
constexpr double kFirst = 24 * kYear;  // of the fifty years from 2025 on
constexpr std::int64_t kStepsInFiftyYears = static_cast<std::int64_t>(50 * kYear * 64);

TEST(Instant, FileTimesRoundToTheNearest) {
  const std::pair<double, FileTime> cases[] = {
      {0.5, {kReferenceDateSince1970, 500'000'000}},
      {-0.25, {kReferenceDateSince1970 - 1, 750'000'000}},
      {0.6e-9, {kReferenceDateSince1970, 1}},
      {-1e-10, {kReferenceDateSince1970, 0}}};  // the fraction rounds up to a whole second
  for (const auto& [seconds, time] : cases) EXPECT_EQ(fileTimeOf({seconds}), time) << seconds;
  // Whatever a server promises, the conversion ends and its result can be compared.
  for (const double odd : {1e300, -1e300, HUGE_VAL, std::nan("")})
    EXPECT_GE(fileTimeOf({odd}).nanoseconds, 0) << odd;
}

TEST(Instant, ComesBackBitForBit) {
  SeededRandom random(1);
  for (std::int64_t step = 0; step < kStepsInFiftyYears; step += 49'999) {
    const Instant sixtyFourth{kFirst + static_cast<double>(step) / 64};
    ASSERT_EQ(instantOf(fileTimeOf(sixtyFourth)), sixtyFourth) << step;
    const Instant any{kFirst + random.fraction() * 50 * kYear};
    ASSERT_EQ(instantOf(fileTimeOf(any)), any) << any.seconds;
  }
}

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
  const std::tuple<const char*, std::int64_t, const char*, const char*> cases[] = {
      {"America/Denver", 1'772'960'399, "2026-03-08 01:59:59", "MST"},  // spring forward
      {"America/Denver", 1'772'960'400, "2026-03-08 03:00:00", "MDT"},
      {"America/Denver", 1'793'519'999, "2026-11-01 01:59:59", "MDT"},  // fall back
      {"America/Denver", 1'793'520'000, "2026-11-01 01:00:00", "MST"},
      {"Australia/Lord_Howe", 1'775'314'799, "2026-04-05 01:59:59", "+11"},  // by half an hour
      {"Australia/Lord_Howe", 1'775'314'800, "2026-04-05 01:30:00", "+1030"},
      {"America/Denver", 2'226'477'600, "2040-07-21 04:00:00", "MDT"},       // beyond the listed changes
      {"America/Mexico_City", 2'226'477'600, "2040-07-21 04:00:00", "CST"},  // gave up summer time
      {"UTC", 951'782'399, "2000-02-28 23:59:59", "UTC"},
      {"UTC", -1, "1969-12-31 23:59:59", "UTC"},
  };
  for (const auto& [name, unixSeconds, local, abbreviation] : cases) {
    const auto zone = TimeZone::named(name);
    ASSERT_TRUE(zone) << name;
    EXPECT_EQ(text(zone->local(unixTime(unixSeconds))), local) << name << " " << unixSeconds;
    EXPECT_EQ(zone->abbreviation(unixTime(unixSeconds)), abbreviation) << name << " " << unixSeconds;
  }
}

TEST(TimeZone, TakesAnyNameAndInstant) {
  for (const char* name : {"", "Nowhere/Land", "../../etc/passwd", "america/denver", "America", "zone.tab"})
    EXPECT_FALSE(TimeZone::named(name)) << name;
  for (const double odd : {1e300, -1e300, HUGE_VAL, std::nan("")}) {
    const LocalTime time = TimeZone::named("Pacific/Auckland")->local({odd});
    EXPECT_TRUE(time.year >= 1 && time.year <= 9999 && time.month >= 1 && time.day >= 1) << odd;
  }
  EXPECT_EQ(text(TimeZone::utc().local({-0.5})), "2000-12-31 23:59:59")
      << "a fraction is dropped, not rounded";
}

TEST(FatalErrorDeathTest, SaysWhere) {
  EXPECT_DEATH(fatalError("a reason"), "^Fatal error: .*TimesTest\\.cpp, line [0-9]+: a reason\n$");
}

}  // namespace
}  // namespace tarvel
