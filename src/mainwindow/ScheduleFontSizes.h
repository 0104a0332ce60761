#pragma once
#include <cstddef>
#include <optional>

#include "schedule/ScheduleViewOption.h"

namespace tarvel {

/// The forms of the schedule that have a size of text of their own.
struct ScheduleForm {
  ScheduleViewOption option = ScheduleViewOption::weekly;
  std::size_t venueCount = 0;  ///< chosen for the daily view; the weekly one has but one
  bool fitVertically = true;
};

/// The sizes of the schedule's text that the user has set, in points; none where none is set. A plain record.
struct ScheduleFontSizes {
  static constexpr double kSmallest = 6.0;
  static constexpr double kLargest = 24.0;
  static constexpr double kStep = 0.5;

  std::optional<double> weeklyFontSizeFit;
  std::optional<double> weeklyFontSizeScroll;
  std::optional<double> dailyFontSizeSingleFit;
  std::optional<double> dailyFontSizeSingleScroll;
  std::optional<double> dailyFontSizeMultiFit;
  std::optional<double> dailyFontSizeMultiScroll;

  /// The size set for the form, else that of the form most like it, else the application's default.
  double sizeFor(const ScheduleForm& form) const;
  void setSizeFor(const ScheduleForm& form, double size);

  friend bool operator==(const ScheduleFontSizes&, const ScheduleFontSizes&) = default;
};

}  // namespace tarvel
