#pragma once
#include <optional>
#include <vector>

#include "platform/Geometry.h"
#include "schedule/ScheduleSpot.h"
#include "schedule/TimeAxis.h"

namespace tarvel {

enum class VerticalFit { scroll, fit };
enum class Medium { screen, page };
/// How large the labels of an axis are written.
enum class AxisLabels { normal, reduced, printed };

/// What the layout of every schedule page depends on.
struct SchedulePageInput {
  Size frame;
  VerticalFit verticalFit = VerticalFit::fit;
  Medium medium = Medium::screen;
  DayRange dayRange{kDefaultStartOfDay, kDefaultEndOfDay};

  /// The axis from `origin` down; one that fits ends `bottomMargin` above the frame's lower end.
  TimeAxis axis(double origin, double bottomMargin) const;
  /// The height that a page with this axis wants where `height` is to be had.
  double heightForAvailableHeight(double height, double origin, double bottomMargin) const;
};

/// An item of a schedule and where it is drawn.
struct PlacedItem {
  const ScheduleItem* item = nullptr;
  Rect rect;
};

/// A column, counted from 0, and a minute of the day.
struct GridHit {
  std::int64_t column = 0;
  std::int64_t minute = 0;
};

/// Equal columns side by side on one axis: days or venues. A plain value that knows no toolkit; y grows
/// downwards from the view's top.
struct ScheduleGrid {
  TimeAxis axis;
  double left = 0.0;   ///< of the first column
  double right = 0.0;  ///< of the last one, and of the lines; without columns the lines' alone
  double columnWidth = 0.0;
  std::int64_t columns = 0;
  Size frame;  ///< of the view: the columns reach from its top to its bottom

  /// Of column k; one beyond the last gives the last one's right end.
  double columnX(std::int64_t k) const { return left + columnWidth * static_cast<double>(k); }
  Rect itemRect(std::int64_t column, const ScheduleItem& item) const;
  /// Adds the item if it is to be drawn for a dirty rectangle. One that takes no time has nothing to be
  /// drawn.
  void addIfMeeting(std::vector<PlacedItem>& placed, std::int64_t column, const ScheduleItem& item,
                    const Rect& dirty) const;
  /// None outside the columns.
  std::optional<GridHit> hit(Point point) const;
  /// How far down to scroll, so that the minute stands a quarter of the way down a visible height.
  double scrollOffset(std::int64_t minute, double visibleHeight) const;
};

}  // namespace tarvel
