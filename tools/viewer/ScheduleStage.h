#pragma once
#include <QScrollArea>

#include "schedule/CalendarView.h"
#include "schedule/PagingView.h"
#include "schedule/PagingViewDelegateProtocol.h"
#include "schedule/ScheduleHeaderView.h"
#include "schedule/SchedulePageView.h"
#include "schedule/ScheduleViewOwner.h"
#include "ui/Window.h"
#include "viewer/ViewerOptions.h"

namespace tarvel::viewer {

/// The window of the viewer: a schedule's pages under their header, or the calendar. Left and right arrow
/// turn the pages. It stands in for the main window's controller, with nothing but what the options say.
class ScheduleStage : public Window, private ScheduleViewOwner, private PagingViewDelegateProtocol {
  Q_OBJECT
 public:
  /// All of them outlive the window.
  ScheduleStage(const WindowContext& context, const std::shared_ptr<RinkData>& rink,
                const ViewerOptions& options);
  ~ScheduleStage() override;

  /// Brings the present moment, or the shown date, into sight. Once everything has been loaded.
  void scrollToMoment();
  /// Of what the options ask to see.
  QPixmap picture();
  /// The span that all pages share.
  const DayRange& dayRange() const { return dayRange_; }

 private:
  enum class Way { back, on };

  // ScheduleViewOwner:
  VerticalFit fitVertically() const override { return options_.fit; }
  double fontSize() const override { return options_.fontSize; }
  SessionTimes showSessionTimes() const override { return options_.times; }
  ScheduleViewOption scheduleViewOption() const override { return form(); }
  std::shared_ptr<RinkData> currentRinkData() const override { return rink_; }
  const std::vector<std::int64_t>& dailyVenueIDs() const override { return venueIDs_; }
  bool isCurrentPage(const PagedView& page) const override;
  ColumnGeometry columnGeometry() const override;
  void redrawScheduleHeader() override;
  void updateDayRange() override;
  bool itemInfoShown() const override { return true; }
  void showItemInfo(const std::string& text) override;
  PackedDate selectedDate() const override { return selectedDate_; }
  void setSelectedDate(PackedDate date) override;
  void gotoScheduleItem(std::int64_t, PackedDate, std::int64_t) override {}

  // PagingViewDelegateProtocol:
  PagedView* newPagedViewForPagingView(PagingView& pagingView) override;
  void loadView(PagedView& page, PagingView& pagingView, int offset) override;
  void reloadView(PagedView& page, PagingView& pagingView, int offset) override;
  bool pagesBeforeCurrent(PagingView&) override { return true; }
  bool pagesAfterCurrent(PagingView&) override { return true; }
  void pagingViewDidGotoNextPage(PagingView&) override { pageTurned(Way::on); }
  void pagingViewDidGotoPrevPage(PagingView&) override { pageTurned(Way::back); }

  ScheduleViewOption form() const;
  void showPages();
  void showCalendar();
  void addTurning();
  PackedDate unitDate(Way way) const;
  void pageTurned(Way way);
  void showTitle();

  WindowContext context_;
  std::shared_ptr<RinkData> rink_;
  const ViewerOptions& options_;
  std::vector<std::int64_t> venueIDs_;
  PackedDate shownDate_;
  PackedDate selectedDate_ = kNoDate;
  DayRange dayRange_{kDefaultStartOfDay, kDefaultEndOfDay};
  QScrollArea* scroller_;
  ScheduleHeaderView* header_ = nullptr;  ///< of pages
  PagingView* pagingView_ = nullptr;      ///< of pages
  CalendarView* calendarView_ = nullptr;  ///< of a calendar
};

}  // namespace tarvel::viewer
