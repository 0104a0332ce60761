#include "mainwindow/WindowLimits.h"

#include <algorithm>

namespace tarvel {

WindowLimits WindowLimits::of(const SidebarWidths& sidebars) {
  double width = kPaneWidth;
  if (sidebars.showRinks) width += sidebars.rinksSidebarDelta;
  if (sidebars.calendarShows) width += sidebars.weeklyCalendarSidebarDelta;
  return {std::max(width, kLeastMinWidth)};
}

Rect WindowLimits::apply(const Rect& frame, const Rect& visible) const {
  Rect result = frame;
  result.height = std::min(std::clamp(frame.height, kMinHeight, kMaxSize), visible.height);
  result.width = std::min(std::clamp(frame.width, minWidth, kMaxSize), visible.width);
  result.x = std::max(visible.x, frame.x);
  result.y = std::max(visible.y, frame.y);
  if (visible.maxX() < result.maxX()) result.x = visible.maxX() - result.width;
  // A window that stands out over the top is lowered by the screen's x origin in place of its y origin. The
  // two are the same on a screen at the desktop's origin without panels; elsewhere windows have always come
  // to stand so, and their stored frames count on it.
  if (visible.maxY() < result.maxY()) result.y = visible.x + visible.height - result.height;
  return result;
}

}  // namespace tarvel
