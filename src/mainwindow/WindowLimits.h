#pragma once
#include "platform/Geometry.h"

namespace tarvel {

/// What the least width of a main window depends on. Widths are those that a sidebar takes, its margin
/// included.
struct SidebarWidths {
  bool showRinks = false;
  double rinksSidebarDelta = 0.0;
  bool calendarShows = false;  ///< the schedule pane shows, and the calendar sidebar is wanted
  double weeklyCalendarSidebarDelta = 0.0;
};

/// The sizes that a main window may have.
struct WindowLimits {
  static constexpr double kMaxSize = 3000.0;
  static constexpr double kMinHeight = 700.0;
  static constexpr double kPaneWidth = 750.0;
  static constexpr double kLeastMinWidth = 820.0;

  double minWidth = kLeastMinWidth;

  static WindowLimits of(const SidebarWidths& sidebars);
  /// The frame nearest to `frame` that keeps the limits and lies on the visible part of its screen; a screen
  /// that is smaller than the limits wins over them. y grows upwards in both rectangles.
  Rect apply(const Rect& frame, const Rect& visibleFrame) const;
};

}  // namespace tarvel
