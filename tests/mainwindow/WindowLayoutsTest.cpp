#include <gtest/gtest.h>

#include <tuple>

#include "mainwindow/NoticeLayout.h"
#include "mainwindow/ScheduleSidebarLayout.h"
#include "mainwindow/TitleRowLayout.h"
#include "mainwindow/WindowLimits.h"

namespace tarvel {

static void PrintTo(const Rect& r, std::ostream* out) {
  *out << r.x << ", " << r.y << ", " << r.width << " x " << r.height;
}

namespace {

TEST(NoticeLayout, RowsAreAsHighAsTheirTexts) {
  const std::pair<NoticeHeights, double> cases[] = {{{17.0, 45.0, 11.0}, 10 + 17 + 6 + 45 + 6 + 11 + 10},
                                                    {{17.0, std::nullopt, 11.0}, 10 + 17 + 6 + 11 + 10},
                                                    {{std::nullopt, 45.0, 11.0}, 10 + 45 + 6 + 11 + 10},
                                                    {{std::nullopt, std::nullopt, 11.0}, 10 + 11 + 10}};
  std::vector<NoticeHeights> rows;
  double y = 0.0;
  for (const auto& [heights, height] : cases) {
    rows.push_back(heights);
    const NoticeLayout layout(rows);
    EXPECT_EQ(layout.rowRect(rows.size() - 1, 300.0), (Rect{0.0, y, 300.0, height}));
    const NoticeLayout::Texts texts = layout.textsOf(rows.size() - 1, 300.0);
    EXPECT_EQ(texts.dateLine, (Rect{20.0, y + height - 21.0, 260.0, 11.0}));
    const double detailY = texts.summary ? y + 33.0 : y + 10.0;
    EXPECT_EQ(texts.detail.value_or(Rect{0.0, detailY}).y, detailY);
    y += height;
    EXPECT_EQ(layout.viewHeight(0.0), y + 10.0);
    EXPECT_EQ(layout.viewHeight(5000.0), 5000.0);
  }
  EXPECT_EQ(NoticeLayout().offsets(), std::vector<double>{0.0});
  EXPECT_EQ(NoticeLayout().viewHeight(8.0), 10.0);
}

TEST(NoticeLayout, TheRowAtAHeight) {
  const NoticeLayout none, three(std::vector<NoticeHeights>(3, {std::nullopt, std::nullopt, 10.0}));
  const std::pair<double, std::optional<std::size_t>> cases[] = {
      {-1.0, {}}, {0.0, 0}, {29.9, 0}, {30.1, 1}, {60.0, 1}, {60.1, 2}, {90.0, 2}, {90.1, {}}};
  for (const auto& [height, row] : cases) {
    EXPECT_EQ(three.rowAt(height), row) << height;
    EXPECT_EQ(none.rowAt(height), std::nullopt);
  }
}

ScheduleSidebarSizes sizesFor(double height, int venueCount = 2) {
  ScheduleSidebarSizes sizes;
  sizes.sidebar = {200, height};
  sizes.logo = {150, 60};
  sizes.viewOptionControl = {140, 28};
  sizes.venueCount = venueCount;
  sizes.widestVenueButton = 81;
  sizes.chimeLabel = {30, 15};
  sizes.chimePopUpButton = {120, 28};
  sizes.analogClockFace = {120, 120};
  sizes.digitalClock = {146, 54};
  sizes.adjustments = {130, 42};
  return sizes;
}

TEST(ScheduleSidebarLayout, placesFromTheTopAndCentresBesideTheMargin) {
  const ScheduleSidebarLayout layout(sizesFor(700));
  EXPECT_EQ(layout.scheduleLogoView, (Rect{29, 12, 150, 60}));
  EXPECT_EQ(layout.scheduleViewOptionControl, (Rect{34, 84, 140, 28}));
  EXPECT_EQ(layout.venueArea, (Rect{0, 128, 200, 42}));
  EXPECT_EQ(layout.venueButtonX, 63) << "whole pixels";
  EXPECT_EQ(layout.venueSelectionBottom, 176);
  EXPECT_EQ(layout.chimeLabel, (Rect{44, 188, 30, 15}));
  EXPECT_EQ(layout.chimePopUpButton, (Rect{44, 206, 120, 28}));
  EXPECT_EQ(layout.scheduleAdjustmentsView, (Rect{39, 646, 130, 42}));
  EXPECT_EQ(ScheduleSidebarLayout(sizesFor(700, 0)).venueSelectionBottom, 128);
}

TEST(ScheduleSidebarLayout, leavesOutTheFaceThenTheDigitalClockThenTheItemInfo) {
  struct Case {
    double height;
    std::optional<double> faceY, digitalY;
    std::optional<Rect> itemInfo;
  };
  const auto info = [](double y, double height) { return Rect{16, y, 176, height}; };
  for (const Case& c :
       {Case{700, 250, 378, info(448, 194)}, Case{606, 250, 378, info(448, 100)},
        Case{605, {}, 250, info(320, 227)}, Case{478, {}, 250, info(320, 100)},
        Case{477, {}, {}, info(250, 169)}, Case{408, {}, {}, info(250, 100)}, Case{407, {}, {}, {}}}) {
    SCOPED_TRACE(c.height);
    const ScheduleSidebarLayout layout(sizesFor(c.height));
    const auto yOf = [](const std::optional<Rect>& r) { return r ? std::optional(r->y) : std::nullopt; };
    EXPECT_EQ(yOf(layout.analogClockFace), c.faceY);
    EXPECT_EQ(yOf(layout.digitalClockContainer), c.digitalY);
    EXPECT_EQ(layout.itemInfoField, c.itemInfo);
  }
}

TEST(ScheduleSidebarLayout, venuesWithoutRoomScrollAboveTheRest) {
  ScheduleSidebarSizes sizes = sizesFor(407, 12);
  sizes.widestVenueButton = 300;
  const ScheduleSidebarLayout layout(sizes);
  EXPECT_EQ(layout.venueArea.height, 141);
  EXPECT_EQ(layout.chimePopUpButton.maxY() + 16, layout.scheduleAdjustmentsView.y - 4);
  EXPECT_EQ(layout.venueButtonX, 16);
  EXPECT_EQ(layout.venueButtonWidth, 176);
  EXPECT_EQ(ScheduleSidebarLayout::venuesHeight(12), 282);
  EXPECT_EQ(ScheduleSidebarLayout(sizesFor(200, 12)).venueArea.height, 42) << "never less than two";
}

std::optional<double> xOf(const std::optional<Rect>& rect) {
  return rect ? std::optional(rect->x) : std::nullopt;
}

TEST(TitleRowLayout, paneControlGivesWayToTheControlsAtTheRight) {
  struct Case {
    MainWindowPane pane;
    double width, paneControl, refresh, back;
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
