#pragma once
#include <optional>
#include <vector>

#include "foundation/CalendarDates.h"
#include "schedule/ScheduleGrid.h"

namespace tarvel {

/// What a week's layout depends on.
struct WeeklyLayoutInput {
  SchedulePageInput page;
  PackedDate weekOf = kNoDate;
};

/// Where everything of one week lies: seven columns, Sunday first, on one axis. Painting, hit testing and the
/// header read this one result. A plain value that knows no toolkit; y grows downwards from the view's top.
class WeeklyLayout {
 public:
  static constexpr int kDays = 7;
  static constexpr double kReducedBelow = 538.0;  ///< of the width without the right margin
  static constexpr double kLabelColumn = 48.0;
  static constexpr double kReducedLabelColumn = 43.0;
  static constexpr double kTodayInset = 3.0;
  static constexpr double kTodayLine = 7.0;
  static constexpr double kSelectionInset = 1.0;
  static constexpr double kSelectionLine = 2.0;
  /// A selection that is today lies inside today's frame.
  static constexpr double kSelectedTodayInset = 2.0;

  WeeklyLayout() = default;
  explicit WeeklyLayout(const WeeklyLayoutInput& input);

  const ScheduleGrid& grid() const { return grid_; }
  Medium medium() const { return input_.page.medium; }
  double pointsPerMinute() const { return grid_.axis.pointsPerMinute; }
  double labelColumnWidth() const { return grid_.left; }
  double columnWidth() const { return grid_.columnWidth; }

  Rect itemRect(const ScheduleItem& item) const { return grid_.itemRect(item.day, item); }
  /// The items to be drawn for a dirty rectangle, in the list's order: where two overlap the later one is on
  /// top. Items of a day that no week has are left out.
  std::vector<PlacedItem> itemsMeeting(const ScheduleItems& items, const Rect& dirty) const;

  AxisLabels labels() const;
  std::int64_t labelStep() const;
  std::vector<AxisTick> ticks() const { return grid_.axis.ticks(labelStep()); }

  // What the screen alone shows; none on a page.
  /// The columns before today; none if there are none.
  std::optional<Rect> pastRect(PackedDate currentDate) const;
  /// The line of today's frame runs along this rectangle; none outside the week.
  std::optional<Rect> todayRect(PackedDate currentDate) const;
  /// The same for the frame of the selected date.
  std::optional<Rect> selectionRect(PackedDate selectedDate, PackedDate currentDate) const;
  /// None when the moment isn't on the axis of this week.
  std::optional<Rect> timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const;

  bool holds(PackedDate date) const;

  /// The height that a week wants where `height` is to be had.
  static double heightForAvailableHeight(double height, const SchedulePageInput& input);

 private:
  bool onScreen() const { return medium() == Medium::screen; }
  Rect columnRect(std::int64_t day, double verticalInset) const;

  WeeklyLayoutInput input_;
  ScheduleGrid grid_;
  bool reducedWidth_ = false;
};

}  // namespace tarvel
