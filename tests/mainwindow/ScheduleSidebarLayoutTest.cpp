#include "mainwindow/ScheduleSidebarLayout.h"

#include <gtest/gtest.h>

namespace tarvel {

static void PrintTo(const Rect& r, std::ostream* out) {
  *out << r.x << ", " << r.y << ", " << r.width << " x " << r.height;
}

namespace {

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
    std::optional<double> faceY;
    std::optional<double> digitalY;
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

}  // namespace
}  // namespace tarvel
