#pragma once
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "schedule/CalendarSelection.h"

namespace tarvel {

/// One day of a month as it is drawn.
struct CalendarDay {
  enum class Role { plain, outOfRange, selected };
  PackedDate date = kNoDate;
  std::string text;
  Rect cell;
  Role role = Role::plain;  ///< how the number looks
  bool filled = false;      ///< the cell is part of the selection

  /// Where the number ends at its right and begins at its top.
  Point numberCorner() const;
};

struct CalendarMonth {
  std::string title;
  Rect titleRect;  ///< over the whole width; the title is centred in it
  Rect titleBand;  ///< what is filled when the month is chosen as a whole
  bool titleSelected = false;
  std::vector<CalendarDay> days;

  /// The filled cells, as one rectangle for each row that has any.
  std::vector<Rect> filledRows() const;
};

/// Which months share the room with that of the selected date, if they can't all be seen.
enum class NeighbourMonths { past, coming };

/// Where everything of a continuous column of months lies: a title and rows of seven days, Sunday first, from
/// the month of the earliest date to that of the latest. The first row of a month begins in the weekday after
/// the last day of the month before. A plain value that knows no toolkit; y grows downwards from the top.
class CalendarLayout {
 public:
  static constexpr int kColumns = 7;
  static constexpr double kTopMargin = 6.0;  ///< of the whole column
  static constexpr double kMonthTopMargin = 6.0;
  static constexpr double kTitleHeight = 18.0;
  static constexpr double kRowHeight = 14.0;
  static constexpr double kMonthBottomMargin = 6.0;
  static constexpr double kColumnWidth = 18.0;
  static constexpr double kWideColumnWidth = 20.0;
  static constexpr double kWideAbove = 160.0;  ///< of the width
  /// A longer range, which only a damaged file can ask for, ends there.
  static constexpr int kMostMonths = 12 * 1'000;

  CalendarLayout() = default;
  /// No months, if a date is missing or the latest lies in a month before the earliest's.
  CalendarLayout(PackedDate minimumDate, PackedDate maximumDate);

  void setWidth(double width);

  PackedDate minimumDate() const { return minimumDate_; }
  PackedDate maximumDate() const { return maximumDate_; }
  int monthCount() const { return static_cast<int>(monthOffsets_.size()) - 1; }
  /// The top of each month, and at the end that of the room below the last.
  const std::vector<double>& monthOffsets() const { return monthOffsets_; }
  double colWidth() const { return colWidth_; }
  /// Of the column of months; the view may be higher.
  double height() const { return monthOffsets_.back(); }

  /// The date within the range that is next to the one given.
  PackedDate clamped(PackedDate date) const;
  /// None outside the months shown.
  std::optional<int> monthIndex(PackedDate date) const;

  struct MonthSpan {
    int first = 0;
    int end = 0;  ///< after the last
  };
  /// The months to be drawn for a dirty rectangle.
  MonthSpan monthsMeeting(const Rect& dirty) const;
  CalendarMonth month(int index, const CalendarSelection& selection) const;

  /// The line around today runs along this rectangle; none if the day isn't shown.
  std::optional<Rect> todayOutline(PackedDate today, const CalendarSelection& selection) const;

  /// The date that a click chooses. In a week's or month's choice a blank beside the days counts for the
  /// nearest one, or for the month's first.
  std::optional<PackedDate> hit(Point point, PeriodViewOption period) const;

  /// The y to be at the top of what can be seen, so that the date's month and as many of its neighbours as
  /// have room are; never beyond the end. `visibleHeight` is that of the room, which the view fills at least.
  /// None if the date is out of range.
  std::optional<double> scrollTop(PackedDate date, double visibleHeight, NeighbourMonths neighbours) const;

 private:
  PackedDate firstDay(int month) const;
  int monthAt(double y) const;
  double left() const;
  Rect cell(PackedDate date, int month) const;
  CalendarDay day(PackedDate date, const Rect& cell, const CalendarSelection& selection) const;
  double span(int from, int to) const;

  PackedDate minimumDate_ = kNoDate;
  PackedDate maximumDate_ = kNoDate;
  double width_ = 0.0;
  double colWidth_ = kColumnWidth;
  std::vector<double> monthOffsets_{kTopMargin};
};

}  // namespace tarvel
