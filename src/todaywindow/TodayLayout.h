#pragma once
#include <array>
#include <optional>
#include <vector>

#include "schedule/ItemTextWidths.h"
#include "schedule/ScheduleGrid.h"

namespace tarvel {

/// What the layout of the day depends on.
struct TodayLayoutInput {
  Size frame;  ///< the room that shows the day: of the scroll area, or of a page's contents
  VerticalFit verticalFit = VerticalFit::fit;
  double heightScaleFactor = 1.0;  ///< logical pixels a minute, of a day that scrolls
  Medium medium = Medium::screen;
  DayRange dayRange;
  ItemTextWidths widest;
};

/// The least span that shows all items and `floor`, its ends on half hours.
DayRange todayRange(const ScheduleItems& items, const DayRange& floor);

/// Where everything of the day lies: one wide column of bars, whose parts are times, description and
/// duration, on one axis. Painting, printing and scrolling read this one result. A plain value that knows no
/// toolkit; y grows downwards from the view's top.
class TodayLayout {
 public:
  static constexpr double kBarX = 45.0;
  static constexpr double kAxisOrigin = 15.0;
  static constexpr double kBottomMargin = 12.0;
  static constexpr double kRightMargin = 30.0;
  static constexpr double kLeastTimeColumn = 80.0;
  static constexpr double kLeastDurationColumn = 50.0;
  static constexpr double kColumnPadding = 8.0;  ///< on both sides of times and duration
  static constexpr double kDescriptionPadding = 14.0;
  static constexpr double kNoteGap = 12.0;    ///< between description and note
  static constexpr double kLeastNote = 50.0;  ///< with less room a note is a corner mark alone
  static constexpr double kLineReach = 6.0;   ///< of the column lines above and below the axis
  static constexpr double kCurrentFrameLine = 5.0;
  static constexpr double kMarkerLine = 4.0;
  static constexpr double kMarkerWidth = 20.0;
  static constexpr double kMarkerHeight = 30.0;
  /// The axis of a day whose sessions don't need more.
  static constexpr DayRange kLeastRange{480, 1200};

  TodayLayout() = default;
  explicit TodayLayout(const TodayLayoutInput& input);

  const TodayLayoutInput& input() const { return input_; }
  const TimeAxis& axis() const { return grid_.axis; }
  double pointsPerMinute() const { return grid_.axis.pointsPerMinute; }
  double timeColWidth() const { return timeColWidth_; }
  double durationColWidth() const { return durationColWidth_; }
  /// Not below 0: a window may be narrower than the other columns.
  double descrColWidth() const { return descrColWidth_; }
  /// Of the view: more than the frame's where a day scrolls.
  double viewHeight() const { return viewHeight_; }
  /// For drawing the axis: without columns of its own.
  const ScheduleGrid& grid() const { return grid_; }
  std::int64_t labelStep() const;
  /// The lines around and between the columns, from left to right, and how far they reach.
  std::array<double, 4> columnLines() const;
  double columnLineTop() const { return kAxisOrigin - kLineReach; }
  double columnLineBottom() const { return grid_.axis.bottom() + kLineReach; }

  Rect barRect(const ScheduleItem& item) const;
  /// Those to be drawn for a dirty rectangle, in the list's order. One that takes no time has nothing to be
  /// drawn.
  std::vector<PlacedItem> itemsMeeting(const ScheduleItems& items, const Rect& dirty) const;
  /// Where, across a bar, its texts are written; their height is the bar's.
  Rect timesRect(const Rect& bar) const;
  Rect durationRect(const Rect& bar) const;
  Rect descriptionRect(const Rect& bar) const;
  Rect descriptionColumn(const Rect& bar) const;
  /// The room for a note beside a description of that width; none if that is too little.
  std::optional<Rect> noteRect(const Rect& bar, double descriptionWidth) const;

  /// None when the moment isn't on the axis, and on a page.
  std::optional<Rect> timeMarkerRect(std::int64_t currentTime) const;
  /// How far down to scroll in a visible height, so that the moment stands a fifth of the way down.
  double scrollOffset(std::int64_t currentTime, double visibleHeight) const;

 private:
  double barWidth() const { return timeColWidth_ + descrColWidth_ + durationColWidth_; }
  TimeAxis makeAxis() const;

  TodayLayoutInput input_;
  ScheduleGrid grid_;
  double timeColWidth_ = kLeastTimeColumn;
  double durationColWidth_ = kLeastDurationColumn;
  double descrColWidth_ = 0.0;
  double viewHeight_ = 0.0;
};

/// The item that is on at that minute; of several the last in the list. Null if there is none.
const ScheduleItem* todayItemAt(const ScheduleItems& items, std::int64_t minute);

}  // namespace tarvel
