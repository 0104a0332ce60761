#pragma once
#include <optional>

#include "platform/Geometry.h"

namespace tarvel {

/// Where a banner of that size has its texts: the summary above the detail, at the left of the controls. y
/// grows downwards.
struct BannerLayout {
  static constexpr double kHeight = 120.0;
  static constexpr double kControlsWidth = 80.0;  ///< at the right
  static constexpr double kTextX = 20.0;
  static constexpr double kTextTop = 6.0;
  static constexpr double kTextGap = 4.0;

  Size bounds;

  double textWidth() const { return bounds.width - kTextX - kControlsWidth; }
  bool isOnControls(double x) const { return x >= bounds.width - kControlsWidth; }

  Size summaryRoom() const { return {textWidth(), bounds.height - kTextTop}; }
  Rect summary(double height) const { return {kTextX, kTextTop, textWidth(), height}; }
  /// Where the detail begins below a summary of that height; none for no summary.
  static double detailTop(std::optional<double> summaryHeight) {
    return summaryHeight ? kTextTop + *summaryHeight + kTextGap : kTextTop;
  }
  /// Not above 0 where the summary leaves nothing.
  Size detailRoom(double top) const { return {textWidth(), bounds.height - kTextTop - top}; }
  Rect detail(double top, double height) const { return {kTextX, top, textWidth(), height}; }
};

}  // namespace tarvel
