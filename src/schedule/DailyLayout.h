#pragma once
#include <optional>
#include <vector>

#include "foundation/CalendarDates.h"
#include "schedule/ItemTextWidths.h"
#include "schedule/ScheduleGrid.h"

namespace tarvel {

/// What a day's layout depends on.
struct DailyLayoutInput {
  SchedulePageInput page;
  PackedDate showingDate = kNoDate;
  std::int64_t venues = 0;
  ItemTextWidths widest;
};

/// What a column has room to say of an item. The name comes first: what stands beside it is given up from the
/// right.
enum class DailyDetail { name, timesAndName, timesNameAndDuration };

/// A day's items: one list a venue, in the order of the columns.
using DailyColumns = std::vector<ScheduleItems>;

/// Where everything of one day lies: one column a venue, on one axis. Painting, hit testing and printing read
/// this one result. A plain value that knows no toolkit; y grows downwards from the view's top.
class DailyLayout {
 public:
  static constexpr double kLeftMargin = 12.0;
  static constexpr double kLabelColumn = 35.0;
  static constexpr double kReducedLabelColumn = 30.0;
  static constexpr double kReducedBelow = 490.0;  ///< of the width without margins and label column
  static constexpr double kLeastTimeColumn = 50.0;
  static constexpr double kLeastDurationColumn = 40.0;
  static constexpr double kPartRoom = 32.0;    ///< beside the widest times and duration
  static constexpr double kLeastName = 175.0;  ///< what a session's name must keep
  static constexpr double kPartGap = 16.0;     ///< between times and name, and right of the duration
  static constexpr double kNameInset = 4.0;    ///< of a name that stands alone

  DailyLayout() = default;
  explicit DailyLayout(const DailyLayoutInput& input);

  const ScheduleGrid& grid() const { return grid_; }
  Medium medium() const { return input_.page.medium; }
  PackedDate showingDate() const { return input_.showingDate; }
  double pointsPerMinute() const { return grid_.axis.pointsPerMinute; }
  double labelColumnWidth() const { return reducedSize_ ? kReducedLabelColumn : kLabelColumn; }
  /// 0 without venues.
  double columnWidth() const { return grid_.columnWidth; }

  DailyDetail detail() const;
  /// 0 for a part that is given up.
  double timeColWidth() const { return timeColWidth_; }
  double durationColWidth() const { return durationColWidth_; }

  /// The items to be drawn for a dirty rectangle, venue by venue: where two overlap the later one is on top.
  std::vector<PlacedItem> itemsMeeting(const DailyColumns& columns, const Rect& dirty) const;
  /// Where, across an item's rectangle, its duration and its name are written; their height is the item's.
  Rect durationRect(const Rect& item) const;
  Rect nameRect(const Rect& item) const;

  AxisLabels labels() const;
  std::int64_t labelStep() const { return labelStepFor(pointsPerMinute()); }
  std::vector<AxisTick> ticks() const { return grid_.axis.ticks(labelStep()); }

  /// All columns, if the day is past.
  std::optional<Rect> pastRect(PackedDate currentDate) const;
  /// Across all columns; none when the moment isn't on the axis of this day, and on a page.
  std::optional<Rect> timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const;

  /// The height that a day wants where `height` is to be had.
  static double heightForAvailableHeight(double height, const SchedulePageInput& input);

 private:
  void chooseParts();

  DailyLayoutInput input_;
  ScheduleGrid grid_;
  bool reducedSize_ = false;
  double timeColWidth_ = kLeastTimeColumn;
  double durationColWidth_ = kLeastDurationColumn;
};

}  // namespace tarvel
