#include "mainwindow/TitleRowLayout.h"

#include <gtest/gtest.h>

namespace tarvel {
namespace {

std::optional<double> xOf(const std::optional<Rect>& rect) {
  return rect ? std::optional(rect->x) : std::nullopt;
}

TEST(TitleRowLayout, paneControlGivesWayToTheControlsAtTheRight) {
  struct Case {
    MainWindowPane pane;
    double width;
    double paneControl;
    double refresh;
    double back;
    std::optional<double> now, prev, next;
  };
  using enum MainWindowPane;
  for (const Case& c :
       {Case{schedule, 750, 122, 458, 54, 494, 558, 592},
        Case{schedule, 1400, 542, 878, 264, 1144, 1208, 1242}, Case{photos, 750, 217, 553, 101, {}, 662, 696},
        Case{photos, 480, 32, 368, 9, {}, 392, 426}, Case{info, 751, 217, 553.5, 101, {}, {}, {}},
        Case{notices, 400, 28, 364, 7, {}, {}, {}}}) {
    for (const double barX : {0.0, 100.0}) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(c.pane) << " at " << c.width);
      TitleRowSizes sizes;
      sizes.bar = {barX, 20, c.width, 48};
      sizes.pane = c.pane;
      sizes.showRinksButton = sizes.gotoNextButton = sizes.showCalendarButton = {34, 28};
      sizes.backButton = {60, 28};
      sizes.paneControl = {320, 27};
      sizes.refreshRinkButton = {28, 28};
      sizes.gotoNowButton = {56, 28};
      sizes.showCalendarLabel = {52, 16};
      const TitleRowLayout layout(sizes);
      const auto moved = [&](std::optional<double> x) { return x ? std::optional(*x + barX) : x; };
      EXPECT_EQ(layout.showRinksButton, (Rect{barX + 12, 30, 34, 28}));
      EXPECT_EQ(layout.paneControl, (Rect{barX + c.paneControl, 30, 320, 27}));
      EXPECT_EQ(layout.refreshRinkButton.x, barX + c.refresh);
      EXPECT_EQ(layout.backButton.x, barX + c.back);
      EXPECT_EQ(xOf(layout.gotoNowButton), moved(c.now));
      EXPECT_EQ(xOf(layout.gotoPrevButton), moved(c.prev));
      EXPECT_EQ(xOf(layout.gotoNextButton), moved(c.next));
      EXPECT_EQ(layout.showCalendarLabel.maxX(), barX + c.width - 8);
      EXPECT_EQ(layout.showCalendarButton.maxX() + 6, layout.showCalendarLabel.x);
    }
  }
}

}  // namespace
}  // namespace tarvel
