#pragma once
#include <QWidget>

#include "auxwindows/WindowContext.h"

class QScrollArea;

namespace tarvel {

class CalendarView;

/// The calendar at the right of the schedule, in as much room as its seven columns and a scroll bar need.
/// Owned by the schedule's pane; main thread.
class CalendarSidebar : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kWidth = 176;

  CalendarSidebar(const WindowContext& context, QWidget* parent);
  CalendarView& calendarView() const { return *calendarView_; }
  /// Hears of nothing from here on; final. Not the toolkit's operation of this name.
  void close();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void updateScrollBarColor();

  QScrollArea* calendarScrollView_;
  CalendarView* calendarView_;
};

}  // namespace tarvel
