#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>

#include "mainwindow/MainWindowSettings.h"
#include "mainwindow/RefreshTexts.h"
#include "mainwindow/RinkDates.h"

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

constexpr PackedDate kFirst = packedDate(2026, 3, 1);
constexpr PackedDate kLast = packedDate(2026, 3, 29);

TEST(WeekRange, clampsDates) {
  const std::tuple<WeekRange, PackedDate, PackedDate> cases[] = {
      {{kFirst, kLast}, packedDate(2026, 2, 28), kFirst},
      {{kFirst, kLast}, packedDate(2026, 4, 4), packedDate(2026, 4, 4)},  // the Saturday of the last week
      {{kFirst, kLast}, packedDate(2026, 4, 5), packedDate(2026, 4, 4)},
      {{kFirst, kNoDate}, packedDate(2026, 3, 12), kNoDate}};
  for (const auto& [range, date, clamped] : cases)
    EXPECT_EQ(range.clamped(date), clamped) << shortDateText(date);
}

TEST(ScheduleMoment, theNightBelongsToTheDayBeforeWhileTheAxisReaches) {
  const PackedDate today = packedDate(2026, 3, 1), before = packedDate(2026, 2, 28);
  const std::tuple<std::int64_t, std::int64_t, ScheduleMoment> cases[] = {
      {90, 1440, {today, 90}},   {90, 1530, {before, 1530}},  {91, 1530, {today, 91}},
      {0, 1440, {before, 1440}}, {299, 1800, {before, 1739}}, {300, 1800, {today, 300}}};
  for (const auto& [time, endOfDay, moment] : cases)
    EXPECT_EQ(scheduleMoment(today, time, 300, endOfDay), moment) << time << " " << endOfDay;
}

using Dictionary = PropertyList::Dictionary;

MainWindowSettings read(const Dictionary& dictionary) {
  MainWindowSettings settings;
  settings.readFrom(dictionary);
  return settings;
}

TEST(MainWindowSettings, comeBackAsWrittenWithOnlyTheFontSizesThatAreSet) {
  const Dictionary written{{"rinkID", 17},
                           {"currentPaneKind", static_cast<int>(MainWindowPane::photos)},
                           {"scheduleViewOption", 1},
                           {"fitVertically", false},
                           {"showSessionTimes", true},
                           {"galleryViewPhotoHeight", 120.0},
                           {"albumViewPhotoHeight", 90.0},
                           {"showRinks", false},
                           {"showCalendar", false},
                           {"weeklyFontSizeFit", 10.5}};
  const MainWindowSettings settings = read(written);
  EXPECT_EQ(settings.currentPaneKind, MainWindowPane::photos);
  EXPECT_EQ(settings.scheduleViewOption, ScheduleViewOption::daily);
  EXPECT_TRUE(settings.dictionary() == written);
}

TEST(MainWindowSettings, takesWhatFitsOfAForeignDictionary) {
  MainWindowSettings wide;
  wide.fontSizes.weeklyFontSizeFit = 11.0;
  MainWindowSettings largest;
  largest.fontSizes.weeklyFontSizeFit = 24.5;
  const std::pair<Dictionary, MainWindowSettings> cases[] = {
      {{{"rinkID", "7"},
        {"fitVertically", 0},
        {"showRinks", "no"},
        {"weeklyFontSizeFit", "big"},
        {"scheduleViewOption", true},
        {"currentPaneKind", 1.0}},
       {}},
      {{{"scheduleViewOption", 2}, {"currentPaneKind", std::int64_t{1} << 40}}, {}},
      {{{"currentPaneKind", -1}}, {}},
      {{{"weeklyFontSizeFit", 11}}, wide},
      {{{"fontSizeFit", 11.0}}, wide},
      {{{"fontSizeFit", 10.0}, {"weeklyFontSizeFit", 11.0}}, wide},
      {{{"weeklyFontSizeFit", std::nan("")}}, {}},
      {{{"fontSizeFit", 1e300}}, largest}};
  for (const auto& [dictionary, expected] : cases) EXPECT_EQ(read(dictionary), expected);
}

}  // namespace
}  // namespace tarvel
