#include "mainwindow/WindowSidebars.h"

#include <algorithm>
#include <utility>

#include "mainwindow/MainTitleRow.h"
#include "mainwindow/RinkSidebar.h"
#include "mainwindow/SchedulePane.h"

namespace tarvel {
namespace {

/// What an open sidebar adds to the window's least width: its own width and a margin.
constexpr double kSidebarMargin = 8.0;
constexpr double kRinksSidebarDelta = RinkSidebar::kWidth + kSidebarMargin;
constexpr double kWeeklyCalendarSidebarDelta = CalendarSidebar::kWidth + kSidebarMargin;

}  // namespace

WindowSidebars::WindowSidebars(const Views& views) : views_(views) {
  views_.titleRow.setShowRinks(showRinks);
  views_.titleRow.setShowCalendar(weeklyCalendarVisible_);
}

Rect WindowSidebars::applyWindowFrame(const Rect& frame) {
  const Rect visible = views_.window.visibleFrame();
  const WindowLimits limits = WindowLimits::of(
      {showRinks, kRinksSidebarDelta, schedulePaneShows && showCalendar, kWeeklyCalendarSidebarDelta});
  // A screen too small for the limits has the last word; the toolkit would hold on to a least size against
  // it.
  views_.window.setFrameLimits(
      {std::min(limits.minWidth, visible.width), std::min(WindowLimits::kMinHeight, visible.height)},
      {WindowLimits::kMaxSize, WindowLimits::kMaxSize});
  const Rect result = limits.apply(frame, visible);
  views_.window.setFrame(result);
  return result;
}

SidebarGrowth WindowSidebars::grow() {
  const Rect before = views_.window.frame();
  const Rect after = applyWindowFrame(before);
  return {after.x - before.x, after.width - before.width};
}

void WindowSidebars::shrink(SidebarGrowth& growth) {
  const SidebarGrowth back = std::exchange(growth, {});
  Rect frame = views_.window.frame();
  frame.x -= back.x;
  frame.width -= back.width;
  applyWindowFrame(frame);
}

void WindowSidebars::updateRinks() {
  showRinks ? openRinks() : closeRinks();
  views_.titleRow.setShowRinks(showRinks);
}

void WindowSidebars::openRinks() {
  if (rinksVisible_) return;
  rinksVisible_ = true;
  rinksGrowth_ = grow();
  views_.rinks.setVisible(true);
}

void WindowSidebars::closeRinks() {
  if (!rinksVisible_) return;
  rinksVisible_ = false;
  views_.rinks.setVisible(false);
  shrink(rinksGrowth_);
}

void WindowSidebars::updateCalendar() {
  showCalendar ? openCalendar() : closeCalendar();
  views_.schedulePane.calendarView().setEnabled(weeklyCalendarVisible_);
  views_.titleRow.setShowCalendar(weeklyCalendarVisible_);
}

void WindowSidebars::openCalendar() {
  if (weeklyCalendarVisible_) return;
  weeklyCalendarVisible_ = true;
  calendarGrowth_ = grow();
  views_.schedulePane.showCalendar(true);
  views_.schedulePane.calendarView().scrollToCurrentDate(Animate::no);
}

void WindowSidebars::closeCalendar() {
  if (!weeklyCalendarVisible_) return;
  weeklyCalendarVisible_ = false;
  views_.schedulePane.showCalendar(false);
  shrink(calendarGrowth_);
}

}  // namespace tarvel
