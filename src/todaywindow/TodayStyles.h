#pragma once
#include "schedule/ScheduleMetrics.h"
#include "ui/AttributedText.h"

namespace tarvel {

/// How the texts of the Today display are written. The bars' texts have fixed colours, whatever the
/// appearance: they stand on the sessions' own colours.
struct TodayStyles {
  static constexpr double kSmallestSize = 9.0;
  static constexpr double kLargestSize = 36.0;
  static constexpr double kSizeStep = 0.5;

  TextAttributes name{kSmallestSize, FontWeight::regular, kBlack};
  TextAttributes time{kSmallestSize, FontWeight::regular, kBlack, kCentredStyle};
  TextAttributes note{kSmallestSize, FontWeight::regular, white(1.0 / 3.0)};
  TextAttributes resurface{kSmallestSize, FontWeight::regular, white(0.4)};
  TextAttributes resurfaceTime{kSmallestSize, FontWeight::regular, white(0.4)};

  /// The sizes of a mode that has just been switched to; the times of a resurfacing keep theirs.
  void switchTo(double baseSize);
  /// The sizes of a base size that was changed.
  void apply(double baseSize);
  static TodayStyles onPage();
};

}  // namespace tarvel
