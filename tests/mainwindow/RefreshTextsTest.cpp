#include "mainwindow/RefreshTexts.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

constexpr Instant kNow{800'000'000.0};

struct Thing : RefreshableProtocol {
  std::optional<double> age;  ///< seconds since the last good refresh
  DownloadErrorKind kind = DownloadErrorKind::noError;
  double next = -1.0;
  bool runs = false;

  std::string refreshName() const override { return {}; }
  std::optional<Instant> lastRefreshTimeStamp() const override {
    return age ? std::optional(kNow - *age) : std::nullopt;
  }
  bool refreshInProgress() const override { return runs; }
  double secondsUntilRefresh() const override { return next; }
  DownloadErrorKind errorKind() const override { return kind; }
  std::string errorLog() const override { return {}; }
  void refreshNow() override {}
};

Thing thing(std::optional<double> age, DownloadErrorKind kind, double next, bool runs = false) {
  Thing result;
  result.age = age;
  result.kind = kind;
  result.next = next;
  result.runs = runs;
  return result;
}

constexpr auto kOk = DownloadErrorKind::noError;
constexpr auto kNoServer = DownloadErrorKind::connectionError;

TEST(RefreshTexts, coarseDurations) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0 sec"},         {59.9, "59 sec"},     {60.0, "60 sec"},
      {61.0, "1 minute"},     {301.0, "5 minutes"}, {3580.0, "1 hour"},
      {3900.0, "1 hr 5 min"}, {7200.0, "2 hours"},  {86400.0, "24 hours"},
  };
  for (const auto& [seconds, text] : cases) EXPECT_EQ(coarseDurationText(seconds), text) << seconds;
}

TEST(RefreshTexts, statusLine) {
  const std::pair<Thing, const char*> cases[] = {
      {thing({}, kOk, -1.0), "Not updated yet"},
      {thing(5.0, kOk, 100.0), "Updated just now"},
      {thing(-30.0, kOk, 100.0), "Updated just now"},  // the machine's clock was set back
      {thing(300.0, kOk, 100.0), "Updated 5 minutes ago"},
      {thing(300.0, kNoServer, 540.0), "Unable to contact server — next try in 9 minutes"},
      {thing(300.0, kNoServer, -1.0), "Unable to contact server"},
      {thing(300.0, kNoServer, 540.0, true), "Refreshing…"},
  };
  for (const auto& [shown, text] : cases) EXPECT_EQ(refreshStatusText(shown, kNow), text);
}

TEST(RefreshTexts, emptyList) {
  const std::string url = "http://rinks.test";
  const std::pair<Thing, const char*> cases[] = {
      {thing({}, kOk, -1.0, true), "Loading the list of rinks from http://rinks.test…"},
      {thing({}, kNoServer, 60.0), "Unable to contact server\nhttp://rinks.test\n\nNext try in 60 sec"},
      {thing(10.0, kOk, 60.0), "There are no rinks at http://rinks.test."},
      {thing({}, kOk, 2.0), "The list of rinks has not been loaded yet.\n\nNext try in 2 sec"},
  };
  for (const auto& [shown, text] : cases) EXPECT_EQ(emptyListText(shown, url), text);
}

// Whatever the state, the line that stands until the promised change is the right one all that time.
TEST(RefreshTexts, aTextHoldsUntilItsChange) {
  for (double age = 0.0; age < 10'000.0; age += 7.3) {
    const Thing shown = thing(age, kOk, -1.0);
    const double wait = secondsUntilTextChanges(shown, kNow);
    ASSERT_GT(wait, 0.0) << age;
    if (wait <= 1.0) continue;
    EXPECT_EQ(refreshStatusText(shown, kNow), refreshStatusText(shown, kNow + (wait - 0.01))) << age;
  }
}

}  // namespace
}  // namespace tarvel
