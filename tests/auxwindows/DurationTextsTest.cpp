#include "auxwindows/DurationTexts.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarvel {
namespace {

TEST(DurationTexts, CoarseDuration) {
  const std::pair<double, const char*> cases[] = {
      {59.9, "59 sec"},        {60.0, "60 sec"},   {60.1, "1 minute"},     {90.0, "2 minutes"},
      {301.0, "5 minutes"},    {3580.0, "1 hour"}, {3660.0, "1 hr 1 min"}, {3900.0, "1 hr 5 min"},
      {7140.0, "1 hr 59 min"}, {7200.0, "2 hours"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(coarseDurationText(seconds), text) << seconds;
}

TEST(DurationTexts, ClockForm) {
  const std::pair<double, const char*> cases[] = {{0.4, "0:00"},       {59.6, "1:00"},
                                                  {300.0, "5:00"},     {3599.4, "59:59"},
                                                  {3599.5, "1:00:00"}, {36'065.0, "10:01:05"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(clockFormText(seconds), text) << seconds;
}

}  // namespace
}  // namespace tarvel
