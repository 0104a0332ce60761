#include "mainwindow/MainWindowSettings.h"

#include <gtest/gtest.h>

#include <functional>

namespace tarvel {
namespace {

using Dictionary = PropertyList::Dictionary;

MainWindowSettings read(const Dictionary& dictionary) {
  MainWindowSettings settings;
  settings.readFrom(dictionary);
  return settings;
}

TEST(MainWindowSettings, writesAllKeysAndOnlyTheFontSizesThatAreSet) {
  MainWindowSettings settings;
  settings.weeklyFontSizeFit = 10.5;
  const Dictionary expected = {
      {"rinkID", 0},
      {"currentPaneKind", 0},
      {"scheduleViewOption", 0},
      {"fitVertically", true},
      {"showSessionTimes", false},
      {"galleryViewPhotoHeight", 200.0},
      {"albumViewPhotoHeight", 200.0},
      {"showRinks", true},
      {"showCalendar", true},
      {"weeklyFontSizeFit", 10.5},
  };
  EXPECT_TRUE(settings.dictionary() == expected);
}

TEST(MainWindowSettings, comeBackAsWritten) {
  const MainWindowSettings settings{17,
                                    MainWindowPane::photos,
                                    ScheduleViewOption::daily,
                                    false,
                                    true,
                                    120.0,
                                    90.0,
                                    false,
                                    false,
                                    8.0,
                                    9.5,
                                    10.0,
                                    11.0,
                                    12.0,
                                    13.5};
  EXPECT_EQ(read(settings.dictionary()), settings);
}

TEST(MainWindowSettings, takesWhatFitsOfAForeignDictionary) {
  struct Case {
    const char* what;
    Dictionary dictionary;
    std::function<void(MainWindowSettings&)> change;  ///< from the defaults
  };
  using S = MainWindowSettings;
  const Case cases[] = {
      {"nothing", {}, [](S&) {}},
      {"wrong types",
       {{"rinkID", "7"},
        {"fitVertically", 0},
        {"showRinks", "no"},
        {"weeklyFontSizeFit", "big"},
        {"albumViewPhotoHeight", true},
        {"scheduleViewOption", true},
        {"currentPaneKind", 1.0}},
       [](S&) {}},
      {"an integer stands for a size", {{"weeklyFontSizeFit", 11}}, [](S& s) { s.weeklyFontSizeFit = 11.0; }},
      {"an option that doesn't exist", {{"scheduleViewOption", 2}}, [](S&) {}},
      {"older size keys",
       {{"fontSizeFit", 10.0}, {"fontSizeScroll", 12.0}},
       [](S& s) {
         s.weeklyFontSizeFit = 10.0;
         s.weeklyFontSizeScroll = 12.0;
       }},
      {"the present key wins",
       {{"fontSizeFit", 10.0}, {"weeklyFontSizeFit", 8.0}},
       [](S& s) { s.weeklyFontSizeFit = 8.0; }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    MainWindowSettings expected;
    c.change(expected);
    EXPECT_EQ(read(c.dictionary), expected);
  }
}

TEST(MainWindowSettings, aPaneThatDoesNotExistIsTheFirst) {
  for (const std::int64_t raw : {std::int64_t{4}, std::int64_t{-1}, std::int64_t{1} << 40}) {
    MainWindowSettings settings;
    settings.currentPaneKind = MainWindowPane::notices;
    settings.readFrom({{"currentPaneKind", raw}});
    EXPECT_EQ(settings.currentPaneKind, MainWindowPane::info) << raw;
  }
}

}  // namespace
}  // namespace tarvel
