#pragma once
#include <string>

#include "auxwindows/WindowContext.h"
#include "mainwindow/CalendarSidebar.h"
#include "mainwindow/ScheduleSidebar.h"
#include "mainwindow/TextLabel.h"
#include "schedule/CalendarView.h"
#include "schedule/PagingView.h"
#include "schedule/ScheduleHeaderView.h"
#include "schedule/SwipeGestureController.h"
#include "ui/WindowPane.h"

class QScrollArea;
class QSplitter;

namespace tarvel {

/// The pane that shows a rink's schedule: the sidebar with its choices at the left, the schedule's pages
/// under their header in the middle, the calendar at the right. Views alone; `ScheduleController` makes it
/// and runs it.
class SchedulePane : public WindowPane {
  Q_OBJECT
 public:
  SchedulePane(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent);

  ScheduleSidebar& scheduleSidebarView() const { return *scheduleSidebarView_; }
  ScheduleHeaderView& scheduleHeaderView() const { return *scheduleHeaderView_; }
  PagingView& schedulePagingView() const { return *schedulePagingView_; }
  CalendarView& calendarView() const { return calendarSidebar_->calendarView(); }
  /// Which week or day is shown, in words.
  void setDescription(const std::string& text) { descriptionLabel_->setTextUtf8(text); }
  std::string description() const { return descriptionLabel_->text().toStdString(); }
  void showCalendar(bool shown);
  /// Hears of nothing from here on; final. Not the toolkit's operation of this name.
  void close();

 private:
  QWidget* makeScheduleArea(const WindowContext& context, ScheduleViewOwner& owner);

  QSplitter* scheduleSplitView_;
  ScheduleSidebar* scheduleSidebarView_;
  TextLabel* descriptionLabel_ = nullptr;
  ScheduleHeaderView* scheduleHeaderView_ = nullptr;
  QScrollArea* scroller_ = nullptr;
  PagingView* schedulePagingView_ = nullptr;
  SwipeGestureController* scheduleSwipeController_ = nullptr;
  CalendarSidebar* calendarSidebar_;
};

}  // namespace tarvel
