#pragma once
#include <memory>
#include <optional>
#include <vector>

#include "foundation/CalendarDates.h"
#include "platform/Geometry.h"
#include "schedule/ScheduleSpot.h"
#include "schedule/TimeAxis.h"

namespace tarvel {

enum class VerticalFit { scroll, fit };
enum class Medium { screen, page };

/// What a week's layout depends on.
struct WeeklyLayoutInput {
  Size frame;
  VerticalFit verticalFit = VerticalFit::fit;
  Medium medium = Medium::screen;
  std::int64_t startOfDay = kDefaultStartOfDay;
  std::int64_t endOfDay = kDefaultEndOfDay;
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

  const TimeAxis& axis() const { return axis_; }
  double pointsPerMinute() const { return axis_.pointsPerMinute; }
  bool reducedWidth() const { return reducedWidth_; }
  double labelColumnWidth() const { return labelColumnWidth_; }
  double columnWidth() const { return columnWidth_; }
  double margin() const;
  /// Of column `day`, 0 for Sunday; 7 gives the right end of the last one.
  double columnX(std::int64_t day) const;

  Rect itemRect(const ScheduleItem& item) const;
  struct PlacedItem {
    const ScheduleItem* item = nullptr;
    Rect rect;
  };
  /// The items to be drawn for a dirty rectangle, in the list's order: where two overlap the later one is on
  /// top. Items of a day that no week has are left out.
  std::vector<PlacedItem> itemsMeeting(const ScheduleItems& items, const Rect& dirty) const;

  std::int64_t labelStep() const;
  std::vector<AxisTick> ticks() const { return axis_.ticks(labelStep()); }

  /// The columns before today; none if there are none.
  std::optional<Rect> pastRect(PackedDate currentDate) const;
  /// The line of today's frame runs along this rectangle; none outside the week.
  std::optional<Rect> todayRect(PackedDate currentDate) const;
  /// The same for the frame of the selected date.
  std::optional<Rect> selectionRect(PackedDate selectedDate, PackedDate currentDate) const;
  /// None when the moment isn't on the axis of this week.
  std::optional<Rect> timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const;

  struct Hit {
    int day = 0;  ///< 0 for Sunday
    std::int64_t minute = 0;
  };
  /// None outside the columns.
  std::optional<Hit> hit(Point point) const;

  bool holds(PackedDate date) const;

  /// How far down to scroll, so that the minute stands a quarter of the way down a visible height.
  double scrollOffset(std::int64_t minute, double visibleHeight) const;

  /// The height that a week wants where `height` is to be had.
  static double heightForAvailableHeight(double height, const WeeklyLayoutInput& input);

 private:
  Rect columnRect(std::int64_t day, double verticalInset) const;

  WeeklyLayoutInput input_;
  TimeAxis axis_;
  bool reducedWidth_ = false;
  double labelColumnWidth_ = 0.0;
  double columnWidth_ = 0.0;
};

}  // namespace tarvel
