#pragma once
#include "mainwindow/WindowLimits.h"
#include "ui/Window.h"

namespace tarvel {

class MainTitleRow;
class RinkSidebar;
class SchedulePane;

/// How far a window grew, and moved, to make room for a sidebar.
struct SidebarGrowth {
  double x = 0.0;
  double width = 0.0;
};

/// The frame of a main window and the two sidebars that it may have to grow for: the rinks at the left and
/// the calendar at the right. A window that had to grow for a sidebar gives back exactly that when it closes;
/// one with room to spare keeps its size. Owned by the window's controller; main thread.
class WindowSidebars {
 public:
  struct Views {
    Window& window;
    RinkSidebar& rinks;
    SchedulePane& schedulePane;
    MainTitleRow& titleRow;
  };
  explicit WindowSidebars(const Views& views);

  bool showRinks = true;     ///< the user wants the list of rinks
  bool showCalendar = true;  ///< the user wants the calendar
  bool schedulePaneShows = false;

  bool rinksVisible() const { return rinksVisible_; }
  bool weeklyCalendarVisible() const { return weeklyCalendarVisible_; }
  /// Open and close by what the user wants.
  void updateRinks();
  void updateCalendar();
  /// Enforces the window's limits and returns the frame that results. y grows upwards.
  Rect applyWindowFrame(const Rect& frame);

 private:
  SidebarGrowth grow();
  void shrink(SidebarGrowth& growth);
  void openRinks();
  void closeRinks();
  void openCalendar();
  void closeCalendar();

  Views views_;
  bool rinksVisible_ = true;
  bool weeklyCalendarVisible_ = true;
  SidebarGrowth rinksGrowth_;
  SidebarGrowth calendarGrowth_;
};

}  // namespace tarvel
