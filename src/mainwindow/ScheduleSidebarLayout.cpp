#include "mainwindow/ScheduleSidebarLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

constexpr double kTopMargin = 12.0;
constexpr double kBottomMargin = 12.0;
constexpr double kLogoGap = 12.0;
constexpr double kVenuesGap = 16.0;  // above the venues
constexpr double kVenueGap = ScheduleSidebarLayout::kVenueStep - ScheduleSidebarLayout::kVenueHeight;
constexpr double kChimeGap = 12.0;
constexpr double kChimeLabelGap = 3.0;
constexpr double kClocksGap = 16.0;  // above the first of clocks and description
constexpr double kFaceGap = 8.0;
constexpr double kDigitalClockGap = 16.0;
constexpr double kAdjustmentsGap = 4.0;
constexpr double kSideGap = 8.0;  // at each side of what fills the width
/// A list that scrolls shows at least two of its lines.
constexpr double kShortestVenueArea = ScheduleSidebarLayout::kVenueStep + ScheduleSidebarLayout::kVenueHeight;

}  // namespace

ScheduleSidebarLayout::ScheduleSidebarLayout(const ScheduleSidebarSizes& sizes)
    : width_(sizes.sidebar.width - kLeftMargin) {
  scheduleLogoView = centred(sizes.logo, kTopMargin);
  scheduleViewOptionControl = centred(sizes.viewOptionControl, scheduleLogoView.maxY() + kLogoGap);
  scheduleAdjustmentsView =
      centred(sizes.adjustments, sizes.sidebar.height - kBottomMargin - sizes.adjustments.height);
  placeVenues(sizes);
  // Label and pop-up button begin at one edge.
  chimePopUpButton = centred(sizes.chimePopUpButton, 0.0);
  chimeLabel = {chimePopUpButton.x, venueSelectionBottom + kChimeGap, sizes.chimeLabel.width,
                sizes.chimeLabel.height};
  chimePopUpButton.y = chimeLabel.maxY() + kChimeLabelGap;
  placeClocksAndItemInfo(sizes);
}

double ScheduleSidebarLayout::venuesHeight(int venueCount, double textScale) {
  const double step = std::round(kVenueHeight * textScale) + kVenueGap;
  return venueCount > 0 ? venueCount * step - kVenueGap : 0.0;
}

Rect ScheduleSidebarLayout::centred(Size size, double y) const {
  return {(width_ - size.width) * 0.5 + kLeftMargin, y, size.width, size.height};
}

void ScheduleSidebarLayout::placeVenues(const ScheduleSidebarSizes& sizes) {
  const double top = scheduleViewOptionControl.maxY() + kVenuesGap;
  const double chimeHeight = kVenueGap + kChimeGap + sizes.chimeLabel.height + kChimeLabelGap +
                             sizes.chimePopUpButton.height + kClocksGap;
  const double room = scheduleAdjustmentsView.y - kAdjustmentsGap - chimeHeight - top;
  const double wanted = venuesHeight(sizes.venueCount, sizes.textScale);
  const double height = std::min(wanted, std::max(room, kShortestVenueArea));
  venueArea = {0.0, top, sizes.sidebar.width, height};
  venueSelectionBottom = sizes.venueCount > 0 ? venueArea.maxY() + kVenueGap : top;
  venueButtonWidth = std::min(sizes.widestVenueButton, width_ - 2 * kSideGap);
  venueButtonX = std::floor((width_ - venueButtonWidth) * 0.5 + kLeftMargin);
}

void ScheduleSidebarLayout::placeClocksAndItemInfo(const ScheduleSidebarSizes& sizes) {
  const double faceHeight = sizes.analogClockFace.height;
  const double digitalHeight = sizes.digitalClock.height;
  const double bottom = scheduleAdjustmentsView.y - kAdjustmentsGap;
  // Larger letters need a larger box for the same words.
  const double shortestItemInfo = kShortestItemInfo * sizes.textScale;
  double top = chimePopUpButton.maxY() + kClocksGap;
  double free = bottom - top - faceHeight - kFaceGap - digitalHeight - kDigitalClockGap;

  const bool showsFace = free >= shortestItemInfo;
  if (!showsFace) free += faceHeight + kFaceGap;
  const bool showsDigital = free >= shortestItemInfo;
  if (!showsDigital) free += digitalHeight + kDigitalClockGap;

  if (showsFace) {
    analogClockFace = centred(sizes.analogClockFace, top);
    top = analogClockFace->maxY() + kFaceGap;
  }
  if (showsDigital) {
    digitalClockContainer = centred(sizes.digitalClock, top);
    top = digitalClockContainer->maxY() + kDigitalClockGap;
  }
  if (free >= shortestItemInfo) itemInfoField = centred({width_ - 2 * kSideGap, bottom - top}, top);
}

}  // namespace tarvel
