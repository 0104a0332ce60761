#include "ui/WindowPlacement.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvel {
namespace {

TEST(WindowPlacement, CountsYFromThePrimaryScreensBottomLeft) {
  const Rect primary{1920, 100, 1600, 900};  // in a toolkit's space that begins at another screen
  const std::pair<Rect, Rect> cases[] = {
      {{1920, 100, 1600, 900}, {0, 0, 1600, 900}},
      {{1920, 990, 10, 10}, {0, 0, 10, 10}},
      {{2020, 150, 300, 200}, {100, 650, 300, 200}},
      {{0, 0, 1920, 1080}, {-1920, -80, 1920, 1080}},
  };
  for (const auto& [toolkit, own] : cases) {
    EXPECT_EQ(windowPlace(toolkit, primary), own);
    EXPECT_EQ(toolkitRect(own, primary), toolkit);
  }
}

TEST(WindowPlacement, FramesAddWhatTheManagerAdds) {
  const FrameMargins margins{1, 20, 2, 5};
  const Rect content{100, 200, 800, 600};
  EXPECT_EQ(frameAround(content, margins), (Rect{99, 195, 803, 625}));
  EXPECT_EQ(contentWithin(frameAround(content, margins), margins), content);
}

TEST(SavedFrame, ComesBackFromItsText) {
  const SavedFrame saved{{-1900, 37, 820, 700}, Rect{-1920, 0, 1920, 1080}};
  EXPECT_EQ(savedFrameText(saved), "-1900 37 820 700 -1920 0 1920 1080");
  const auto read = parseSavedFrame(savedFrameText(saved));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->content, saved.content);
  EXPECT_EQ(read->screen, saved.screen);
}

TEST(SavedFrame, ReadsTolerantlyAndRefusesNonsense) {
  for (const char* text : {"10 20 300 200", "  10\t20 300   200  ", "10 20 300 200 0 0",
                           "10 20 300 200 0 0 0 0", "10 20 300 200 x"}) {
    const auto saved = parseSavedFrame(text);
    EXPECT_TRUE(saved && !saved->screen) << text;
  }
  EXPECT_TRUE(parseSavedFrame("10.5 20 300 200 0 0 1920 1080 and more")->screen);
  for (const char* text : {"", "10 20 300", "10 20 x 200", "10,20,300,200", "10 20 0 200", "10 20 300 -200",
                           "nan 20 300 200", "10 inf 300 200", "1e300 20 300 200"}) {
    EXPECT_FALSE(parseSavedFrame(text)) << text;
  }
}

TEST(WindowPlacement, SavedFramesComeBackWhereTheyCanBeReached) {
  const Rect main{0, 0, 1920, 1080};
  const Rect right{1920, 0, 1280, 1024};
  const std::vector<ScreenArea> one{{main, {0, 40, 1920, 1040}}};
  const std::vector<ScreenArea> two{{main, {0, 40, 1920, 1040}}, {right, right}};
  const struct {
    const char* name;
    SavedFrame saved;
    const std::vector<ScreenArea>& screens;
    Rect place;
  } cases[] = {
      {"nothing has changed", {{100, 100, 820, 700}, main}, one, {100, 100, 820, 700}},
      {"half beyond the edge by the user's wish",
       {{1500, -300, 820, 700}, main},
       one,
       {1500, -300, 820, 700}},
      {"over two screens", {{1500, 100, 820, 700}, main}, two, {1500, 100, 820, 700}},
      {"under the panel but in reach", {{0, 0, 820, 700}, main}, one, {0, 0, 820, 700}},
      {"its upper edge above the screen", {{100, 900, 820, 700}, main}, one, {100, 380, 820, 700}},
      {"nothing of it on the screen", {{5000, 5000, 820, 700}, main}, one, {1100, 380, 820, 700}},
      {"only a corner to take hold of", {{1880, 100, 820, 700}, main}, one, {1100, 100, 820, 700}},
      {"its screen is gone", {{2000, 200, 820, 700}, right}, one, {1100, 200, 820, 700}},
      {"its screen is gone, and the rest is smaller",
       {{2000, 0, 2500, 1400}, Rect{1920, 0, 2560, 1440}},
       one,
       {0, 40, 1920, 1040}},
      {"screen unknown, in sight", {{100, 100, 820, 700}, {}}, one, {100, 100, 820, 700}},
      {"most on the second screen", {{1900, 500, 820, 700}, {}}, two, {1920, 324, 820, 700}},
      {"no screen at all", {{100, 100, 820, 700}, main}, {}, {100, 100, 820, 700}},
  };
  for (const auto& c : cases) EXPECT_EQ(placeOnScreens(c.saved, {}, c.screens), c.place) << c.name;
  const FrameMargins margins{2, 30, 2, 2};
  EXPECT_EQ(placeOnScreens({{5000, 5000, 820, 700}, main}, margins, one), (Rect{1098, 350, 820, 700}));
}

TEST(WindowPlacement, ACascadeGoesDownRightAndBeginsAnewAtTheEnd) {
  const Rect visible{0, 40, 1000, 800};
  const Size window{400, 300};
  Point point{0, 840};
  point = nextCascadePoint(point, window, visible);
  EXPECT_EQ(point, (Point{24, 816}));
  EXPECT_EQ(nextCascadePoint({590, 800}, window, visible), (Point{0, 840})) << "right edge";
  EXPECT_EQ(nextCascadePoint({100, 350}, window, visible), (Point{0, 840})) << "lower edge";
}

TEST(WindowPlacement, AnUntoldPlaceIsTheOneBefore) {
  const Rect screen{0, 0, 1280, 800};
  const SavedFrame other{{100, 50, 600, 400}, Rect{0, 0, 1920, 1080}};
  const SavedFrame olds{{100, 50, 600, 400}, {}};
  const std::tuple<Size, std::optional<SavedFrame>, const char*> cases[] = {
      {{600, 400}, other, "100 50 600 400 0 0 1920 1080"},
      {{700, 300}, other, "100 150 700 300 0 0 1920 1080"},
      {{600, 400}, olds, "100 50 600 400"},
      {{601, 400}, {}, "340 200 601 400 0 0 1280 800"}};
  for (const auto& [content, last, saved] : cases)
    EXPECT_EQ(savedFrameText(frameOfUntoldPlace(content, last, screen)), saved);
}

}  // namespace
}  // namespace tarvel
