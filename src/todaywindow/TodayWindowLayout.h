#pragma once
#include "todaywindow/TodayLayout.h"

namespace tarvel {

/// What the layout of a Today window depends on.
struct TodayWindowInput {
  Size window;
  Size logo;  ///< in pixels of its own; empty without one
  bool showsCloseButton = false;
};

/// Where the parts of a Today window stand: logo, names, clock and buttons in one band, and below it the
/// schedule edge to edge. The band and its texts grow with the window, so that they are read from as far as
/// the window is large. A plain value that knows no toolkit; y grows downwards.
struct TodayWindowLayout {
  static constexpr double kLeastBand = 72.0;
  static constexpr double kLargestBand = 260.0;
  /// The band's contents begin and end where the bars below do.
  static constexpr double kLeftMargin = TodayLayout::kBarX;
  static constexpr double kRightMargin = TodayLayout::kRightMargin;
  static constexpr double kMargin = 16.0;  ///< the least between two parts
  static constexpr double kGap = 8.0;
  static constexpr double kButtonWidth = 34.0;
  static constexpr double kButtonHeight = 28.0;
  static constexpr Size kSmallestWindow{620.0, 420.0};

  double bandHeight = kLeastBand;
  Rect logo;  ///< empty without one
  Rect info;
  Rect time;
  Rect date;
  Rect refreshButton;
  Rect gearButton;
  Rect closeButton;  ///< empty without one
  Rect schedule;
  double timeFontSize = 0.0;
  double dateFontSize = 0.0;
  double rinkNameFontSize = 0.0;
  double venueNameFontSize = 0.0;

  static TodayWindowLayout of(const TodayWindowInput& input);

 private:
  double placeButtons(double right, bool showsCloseButton);
  void placeClock(double right);
  void placeNames(double right, const Size& logoSize);
};

}  // namespace tarvel
