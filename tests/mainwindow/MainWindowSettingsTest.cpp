#include "mainwindow/MainWindowSettings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace tarvel {
namespace {

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
