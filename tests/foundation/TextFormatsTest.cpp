#include "foundation/TextFormats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <tuple>

namespace tarvel {
namespace {

TEST(TextFormats, TimesOfDay) {
  const std::tuple<std::int64_t, const char*, const char*> cases[] = {
      {0, "12:00", "12:00 am"},    {719, "11:59", "11:59 am"},  {720, "12:00", "12:00 pm"},
      {1439, "11:59", "11:59 pm"}, {1440, "12:00", "12:00 am"}, {1505, "1:05", "1:05 am"}};
  for (const auto& [minutes, clock, time] : cases) {
    EXPECT_EQ(clockText(minutes), clock);
    EXPECT_EQ(timeText(minutes), time);
  }
}

TEST(TextFormats, Durations) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0 min"}, {59, "59 min"}, {60, "1 hr"}, {121, "2 hr 1 min"}};
  for (const auto& [minutes, text] : cases) EXPECT_EQ(durationText(minutes), text);
}

TEST(TextFormats, GroupedNumbers) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0"},       {999, "999"},          {1000, "1,000"},
      {-999, "-999"}, {-123456, "-123,456"}, {INT64_MIN, "-9,223,372,036,854,775,808"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(groupedNumber(number), text);
}

TEST(TextFormats, DatesAndTimes) {
  const TimeZone denver = *TimeZone::named("America/Denver");
  const std::pair<double, const char*> cases[] = {{0.0, "12/31/2000 5:00:00 pm"},
                                                  {7 * 3600.0, "1/1/2001 12:00:00 am"},
                                                  {19 * 3600 + 61.9, "1/1/2001 12:01:01 pm"},
                                                  {763'775'999.0, "3/15/2025 5:59:59 pm"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(dateAndTimeText(Instant{seconds}, denver), text);
  EXPECT_EQ(dateAndTimeText(std::nullopt, denver), "?");
}

TEST(TextFormats, Intervals) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0:00.0"},          {2.0, "0:02.0"},      {125.5, "2:05.5"},       {125.44, "2:05.4"},
      {59.96, "1:00.0"},        {3599.94, "59:59.9"}, {3599.96, "1:00:00.0"},  {3725.5, "1:02:05.5"},
      {172800.0, "48:00:00.0"}, {-5.0, "0:00.0"},     {std::nan(""), "0:00.0"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(intervalText(seconds), text) << seconds;
}

}  // namespace
}  // namespace tarvel
