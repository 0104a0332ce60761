#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "mainwindow/ChosenVenues.h"
#include "mainwindow/MainWindowSettings.h"
#include "mainwindow/RinkDates.h"
#include "mainwindow/ScheduleHost.h"
#include "mainwindow/SchedulePane.h"
#include "schedule/ScheduleChime.h"
#include "schedule/SchedulePageView.h"

namespace tarvel {

class DailyScheduleView;
class WeeklyScheduleView;

/// What the title row offers on the schedule's pane.
struct ScheduleControls {
  bool canGoBack = false;
  bool canGoToNow = false;
  bool canGoForward = false;
};

/// Runs the schedule's pane of a main window: which date and which venues are shown, in which form and size,
/// the turning of pages, the rink's clock, the chime and printing. The window's controller owns it, tells it
/// of rink, settings and changes of the model, and lets go of it by `close`. Main thread.
class ScheduleController : private ScheduleViewOwner, private PagingViewDelegateProtocol {
 public:
  /// Makes the pane, as a child of `parent`. The host outlives it.
  ScheduleController(const WindowContext& context, ScheduleHost& host, QWidget* parent);
  ~ScheduleController() override;
  ScheduleController(const ScheduleController&) = delete;
  ScheduleController& operator=(const ScheduleController&) = delete;

  SchedulePane& pane() const { return *pane_; }

  // The rink:
  /// Puts the choice of venues back into the rink, which keeps it.
  void storeChosenVenues() const;
  /// Takes over another rink with its venues and dates; null for none. `updateRinkContent` is to follow.
  void chooseRink(const std::shared_ptr<RinkData>& rink);
  void updateRinkContent();
  /// The chime's data pass.
  void loadData();

  // The pane comes and goes:
  void paneShown();
  void paneHidden();
  /// What a pane that is to show has to bring up to date first.
  void prepareForShow();

  // The user's commands. The date is gone to with the page turning where it is the next or the one before.
  void prev();
  void next();
  void gotoNow();
  /// False if that is the form that shows already.
  bool setScheduleViewOption(ScheduleViewOption option);
  void increaseTextSize();
  void decreaseTextSize();
  bool canPrint() const { return isShown_ && !rink_.expired(); }
  /// Opens the desktop's print dialog over the window.
  void print();

  // Changes of the model, all of the chosen rink:
  void timeTick();
  void currentDateChanged();
  void timeZoneChanged();
  void venuesChanged();
  void dateRangeChanged();
  void weeklyScheduleChanged(PackedDate weekOf);
  /// The calendar's selection is another one.
  void changeCalendarDate();
  void logoChanged();

  void restoreSettings(const MainWindowSettings& settings);
  void addToSettings(MainWindowSettings& settings) const;
  /// The calendar of a window that has just opened, whatever its rink.
  void resetCalendar();
  ScheduleControls controls() const;
  /// Brings header and description up to date.
  void updateHeader();
  bool wantsChime() const { return venues_.chimeVenueID != 0; }
  PackedDate displayDate() const { return displayDate_; }
  PackedDate currentDate() const { return currentDate_; }
  SchedulePageView* currentPage() const;
  /// Lets go of the pages and of all observations; final.
  void close();

 private:
  enum class Scroll { no, yes };
  enum class Way { back, on };

  // ScheduleViewOwner:
  VerticalFit fitVertically() const override;
  double fontSize() const override { return fontSize_; }
  SessionTimes showSessionTimes() const override;
  ScheduleViewOption scheduleViewOption() const override { return scheduleViewOption_; }
  std::shared_ptr<RinkData> currentRinkData() const override { return rink_.lock(); }
  const std::vector<std::int64_t>& dailyVenueIDs() const override { return venues_.dailyChosenVenueIDs; }
  bool isCurrentPage(const PagedView& page) const override;
  ColumnGeometry columnGeometry() const override;
  void redrawScheduleHeader() override;
  void updateDayRange() override;
  bool itemInfoShown() const override;
  void showItemInfo(const std::string& text) override;
  PackedDate selectedDate() const override { return selectedDate_; }
  void setSelectedDate(PackedDate date) override;
  void gotoScheduleItem(std::int64_t venueID, PackedDate date, std::int64_t minutes) override;

  // PagingViewDelegateProtocol:
  PagedView* newPagedViewForPagingView(PagingView& pagingView) override;
  void loadView(PagedView& page, PagingView& pagingView, int offset) override;
  void reloadView(PagedView& page, PagingView& pagingView, int offset) override;
  bool pagesBeforeCurrent(PagingView& pagingView) override;
  bool pagesAfterCurrent(PagingView& pagingView) override;
  void pagingViewDidGotoNextPage(PagingView&) override { pageTurned(Way::on); }
  void pagingViewDidGotoPrevPage(PagingView&) override { pageTurned(Way::back); }

  void connectSidebar();
  bool isDaily() const { return scheduleViewOption_ == ScheduleViewOption::daily; }
  WeekRange weekRange() const;
  PackedDate clamped(PackedDate date) const;
  /// Of the day or week before or after the one shown; a week is named by its Sunday.
  PackedDate unitDate(Way way) const;
  void goToDate(PackedDate date, Scroll scroll);
  void goToFirstDay();
  void pageTurned(Way way);
  void clearSelection();

  void updateVenues();
  void updateChimePopUp();
  void toggleVenue(std::int64_t venueID, bool on);
  void setWeeklyVenue(std::int64_t venueID);
  void handDailyVenues();
  void chooseChimeOption(std::int64_t venueID);
  void toggleFitHeight(bool on);
  void toggleShowTimes(bool on);

  ScheduleForm form() const;
  void updateFontSize();
  void setFontSize(double size);

  PagingView& pagingView() const { return pane_->schedulePagingView(); }
  ScheduleSidebar& sidebar() const { return pane_->scheduleSidebarView(); }
  CalendarView& calendarView() const { return pane_->calendarView(); }
  void forEachPage(const std::function<void(SchedulePageView&)>& action) const;
  void rebuildPages();
  void reloadPages();
  void fill(PagedView& page, int offset);
  void updateItemInfoSoon();
  void followMidnight(PackedDate date);
  void showClock();
  void chime(std::int64_t time);

  WindowContext context_;
  ScheduleHost& host_;
  std::weak_ptr<RinkData> rink_;
  ScheduleViewOption scheduleViewOption_ = ScheduleViewOption::weekly;
  bool fitVertically_ = true;
  bool showSessionTimes_ = false;
  ScheduleFontSizes fontSizes_;
  double fontSize_;
  PackedDate displayDate_ = kNoDate;   ///< the date that the pane is on
  PackedDate selectedDate_ = kNoDate;  ///< clicked by the user
  PackedDate currentDate_ = kNoDate;   ///< the rink's day as the schedule sees it
  std::int64_t currentTime_ = 0;       ///< minutes; above 1440 after midnight
  /// The span that all pages share; it never shrinks while the rink stays.
  DayRange dayRange_{kDefaultStartOfDay, kDefaultEndOfDay};
  ChosenVenues venues_;
  ScheduleChime chime_;
  bool isShown_ = false;  ///< the schedule's pane is the window's
  bool isClosed_ = false;
  SchedulePane* pane_;  ///< a child of the window
  std::unique_ptr<Timer> itemInfoTimer_;
};

}  // namespace tarvel
