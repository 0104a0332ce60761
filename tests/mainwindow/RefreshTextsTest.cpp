#include "mainwindow/RefreshTexts.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

constexpr Instant kNow{800'000'000.0};

struct Thing : RefreshableProtocol {
  Thing(double a, DownloadErrorKind k, double n, bool r = false) : age(a), kind(k), next(n), runs(r) {}
  std::string refreshName() const override { return {}; }
  std::optional<Instant> lastRefreshTimeStamp() const override { return kNow - age; }
  bool refreshInProgress() const override { return runs; }
  double secondsUntilRefresh() const override { return next; }
  DownloadErrorKind errorKind() const override { return kind; }
  std::string errorLog() const override { return {}; }
  void refreshNow() override {}

  double age;  ///< seconds since the last good refresh
  DownloadErrorKind kind;
  double next;
  bool runs;
};

constexpr auto kOk = DownloadErrorKind::noError;
constexpr auto kNoServer = DownloadErrorKind::connectionError;

TEST(RefreshTexts, statusLine) {
  const std::pair<Thing, const char*> cases[] = {
      {Thing(5.0, kOk, 100.0), "Updated just now"},
      {Thing(-30.0, kOk, 100.0), "Updated just now"},
      {Thing(300.0, kOk, 100.0), "Updated 5 minutes ago"},
      {Thing(300.0, kNoServer, 540.0), "Unable to contact server — next try in 9 minutes"},
      {Thing(300.0, kNoServer, 540.0, true), "Refreshing…"},
  };
  for (const auto& [shown, text] : cases) EXPECT_EQ(refreshStatusText(shown, kNow), text);
}

// Whatever the state, the line that stands until the promised change is the right one all that time.
TEST(RefreshTexts, aTextHoldsUntilItsChange) {
  for (double age = 0.0; age < 10'000.0; age += 7.3) {
    const Thing shown = Thing(age, kOk, -1.0);
    const double wait = secondsUntilTextChanges(shown, kNow);
    ASSERT_GT(wait, 0.0) << age;
    if (wait <= 1.0) continue;
    EXPECT_EQ(refreshStatusText(shown, kNow), refreshStatusText(shown, kNow + (wait - 0.01))) << age;
  }
}

}  // namespace
}  // namespace tarvel
