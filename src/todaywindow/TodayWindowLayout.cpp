#include "todaywindow/TodayWindowLayout.h"

#include <algorithm>
#include <cmath>

namespace tarvel {
namespace {

// The band, by the window's smaller side of the two that count.
constexpr double kBandOfHeight = 0.125;
constexpr double kBandOfWidth = 0.11;
// The parts, by the band's height.
constexpr double kBandPadding = 0.1;
constexpr double kTimeHeight = 0.52;
constexpr double kDateHeight = 0.24;
constexpr double kClockWidth = 3.0;
constexpr double kLogoWidth = 2.2;
constexpr double kTimeFont = 0.46;
constexpr double kDateFont = 0.18;
constexpr double kRinkNameFont = 0.26;
constexpr double kVenueNameFont = 0.2;
/// Of the room left of the clock.
constexpr double kWidestLogo = 0.45;

}  // namespace

TodayWindowLayout TodayWindowLayout::of(const TodayWindowInput& input) {
  TodayWindowLayout layout;
  const Size& window = input.window;
  layout.bandHeight = std::clamp(std::min(kBandOfHeight * window.height, kBandOfWidth * window.width),
                                 kLeastBand, kLargestBand);
  const double band = layout.bandHeight;
  layout.timeFontSize = kTimeFont * band;
  layout.dateFontSize = kDateFont * band;
  layout.rinkNameFontSize = kRinkNameFont * band;
  layout.venueNameFontSize = kVenueNameFont * band;
  layout.placeClock(layout.placeButtons(window.width - kRightMargin, input.showsCloseButton) - kMargin);
  layout.placeNames(layout.time.x - kMargin, input.logo);
  layout.schedule = {0.0, band, window.width, std::max(0.0, window.height - band)};
  return layout;
}

/// From the right end on; gives where they begin.
double TodayWindowLayout::placeButtons(double right, bool showsCloseButton) {
  const double y = (bandHeight - kButtonHeight) / 2;
  const auto next = [&](Rect& button) {
    right -= kButtonWidth;
    button = {right, y, kButtonWidth, kButtonHeight};
  };
  if (showsCloseButton) {
    next(closeButton);
    right -= kGap;
  }
  next(gearButton);
  right -= kGap;
  next(refreshButton);
  return right;
}

void TodayWindowLayout::placeClock(double right) {
  const double width = kClockWidth * bandHeight;
  const double top = (1.0 - kTimeHeight - kDateHeight) / 2 * bandHeight;
  time = {right - width, top, width, kTimeHeight * bandHeight};
  date = {time.x, time.maxY(), width, kDateHeight * bandHeight};
}

void TodayWindowLayout::placeNames(double right, const Size& logoSize) {
  const double padding = kBandPadding * bandHeight;
  const double height = bandHeight - 2 * padding;
  double left = kLeftMargin;
  if (logoSize.width > 0.0 && logoSize.height > 0.0) {
    // No wider than the picture, which isn't enlarged, so that it stands at the margin and the names beside
    // it.
    const double scale = std::min(1.0, height / logoSize.height);
    const double widest = std::min(kLogoWidth * bandHeight, kWidestLogo * (right - left));
    logo = {left, padding, std::max(0.0, std::min(std::ceil(scale * logoSize.width), widest)), height};
    left = logo.maxX() + std::max(kMargin, padding);
  }
  info = {left, padding, std::max(0.0, right - left), height};
}

}  // namespace tarvel
