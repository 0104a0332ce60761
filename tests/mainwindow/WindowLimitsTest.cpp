#include "mainwindow/WindowLimits.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tarvel {
namespace {

TEST(WindowLimits, leastWidthGrowsWithTheSidebars) {
  EXPECT_DOUBLE_EQ(WindowLimits::of({false, 200.0, false, 200.0}).minWidth, 820.0);
  EXPECT_DOUBLE_EQ(WindowLimits::of({true, 200.0, false, 200.0}).minWidth, 950.0);
  EXPECT_DOUBLE_EQ(WindowLimits::of({true, 200.0, true, 210.0}).minWidth, 1160.0);
}

TEST(WindowLimits, framesAreLimitedAndFitTheScreen) {
  const Rect screen{0.0, 0.0, 1920.0, 1080.0};
  const Rect besideAPanel{100.0, 40.0, 1720.0, 1000.0};
  const Rect small{0.0, 0.0, 800.0, 600.0};
  const std::tuple<const char*, Rect, Rect, Rect> cases[] = {
      {"too small", {100, 100, 300, 300}, screen, {100, 100, 950, 700}},
      {"too large", {0, 0, 5000, 5000}, {0, 0, 4000, 4000}, {0, 0, 3000, 3000}},
      {"as tall as the screen", {100, 200, 1200, 3000}, screen, {100, 0, 1200, 1080}},
      {"out at the left and bottom", {-50, -60, 1000, 800}, screen, {0, 0, 1000, 800}},
      {"out at the right and top", {1500, 600, 1000, 800}, screen, {920, 280, 1000, 800}},
      {"beside a panel the x origin counts", {200, 600, 1000, 800}, besideAPanel, {200, 300, 1000, 800}},
      {"a screen smaller than the limits", {100, 100, 1200, 900}, small, {0, 0, 800, 600}}};
  const WindowLimits limits = WindowLimits::of({true, 200.0, false, 0.0});
  for (const auto& [what, frame, visible, result] : cases)
    EXPECT_EQ(limits.apply(frame, visible), result) << what;
}

}  // namespace
}  // namespace tarvel
