#include "platform/Instant.h"

#include <gtest/gtest.h>

#include <cmath>

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
  for (const double odd : {1e300, -1e300, HUGE_VAL, std::nan("")}) {
    EXPECT_GE(fileTimeOf({odd}).nanoseconds, 0) << odd;
  }
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

}  // namespace
}  // namespace tarvel
