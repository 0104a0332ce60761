#pragma once
#include <QWidget>
#include <functional>
#include <memory>

#include "auxwindows/WindowContext.h"
#include "mainwindow/MainWindowSettings.h"
#include "mainwindow/RinkDates.h"
#include "schedule/ScheduleHeaderView.h"
#include "schedule/WeeklyScheduleView.h"

class QCheckBox;
class QScrollArea;

namespace tarvel {

class TextLabel;
class VenueButtonRow;

/// What the window's controls say of the schedule.
struct ScheduleControls {
  std::string description;  ///< "Week of 3/15/26"
  bool canGoBack = false;
  bool canGoForward = false;
  bool canGoToNow = false;
};

/// The pane that shows a rink's schedule: the venues to choose from, the week, and what is under the mouse.
/// It holds the date that is shown and the span of the day, and answers what the schedule's views ask. Owned
/// by its window's controller, which tells it rink, time and changes of the model.
class SchedulePane : public QWidget, private ScheduleViewOwner {
  Q_OBJECT
 public:
  SchedulePane(const WindowContext& context, QWidget* parent);
  ~SchedulePane() override;

  /// Called when another date or the rink's offer makes the controls say something else; may be empty.
  std::function<void()> controlsChanged;
  ScheduleControls controls() const;

  /// First step towards another rink: takes it and its choice of venues over, and goes to a date that it
  /// offers.
  void setRink(const std::shared_ptr<RinkData>& rink);
  /// Last step: the span of the day begins anew and the pages are filled.
  void fillForRink();
  /// Puts the choices of venues back into the rink, which keeps them.
  void storeChosenVenues() const;

  void goToPreviousPage();
  void goToNextPage();
  void gotoNow();

  /// Takes date and time from the rink.
  void timeTick();
  void currentDateChanged();
  void venuesChanged();
  void dateRangeChanged();
  void updateRinkContent();

  void restoreSettings(const MainWindowSettings& settings);
  void addToSettings(MainWindowSettings& settings) const;
  /// Lets go of all observations; final. Not the toolkit's operation of this name.
  void close();

  PackedDate displayDate() const { return displayDate_; }
  const WeeklyScheduleView& weeklyView() const { return *page_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  VerticalFit fitVertically() const override;
  double weeklyFontSize() const override { return fontSize_; }
  SessionTimes showSessionTimes() const override;
  ScheduleViewOption scheduleViewOption() const override { return ScheduleViewOption::weekly; }
  std::shared_ptr<RinkData> currentRinkData() const override { return rink_.lock(); }
  bool isCurrentPage(const PagedView& page) const override { return &page == page_; }
  ColumnGeometry columnGeometry() const override;
  void redrawScheduleHeader() override { header_->update(); }
  void updateDayRange() override;
  bool itemInfoShown() const override;
  void showItemInfo(const std::string& text) override;
  PackedDate selectedDate() const override { return selectedDate_; }
  void setSelectedDate(PackedDate date) override;
  void gotoScheduleItem(std::int64_t venueID, PackedDate date, std::int64_t minute) override;

  QWidget* makeScheduleArea();
  QWidget* makeFooter();
  WeekRange weekRange() const;
  /// The nearest date that the rink offers; the date itself without a rink.
  PackedDate clamped(PackedDate date) const;
  void updateVenues();
  void setWeeklyVenue(std::int64_t venueID);
  void toggleFitHeight(bool fit);
  void pageTurned(PackedDate date);
  void reloadPages();
  void layOutPages();
  void tellControls() const;

  WindowContext context_;
  std::weak_ptr<RinkData> rink_;
  MainWindowSettings settings_;  ///< the parts that concern schedules
  double fontSize_ = kDefaultItemFontSize;
  PackedDate displayDate_ = kNoDate;   ///< the date that the pane is on
  PackedDate selectedDate_ = kNoDate;  ///< clicked by the user
  PackedDate currentDate_ = kNoDate;   ///< the rink's day as the schedule sees it
  std::int64_t currentTime_ = 0;       ///< minutes; above 1440 after midnight
  DayRange dayRange_{kDefaultStartOfDay, kDefaultEndOfDay};
  std::int64_t chimeVenueID_ = 0;
  std::int64_t weeklyChosenVenueID_ = 0;
  std::vector<std::int64_t> dailyChosenVenueIDs_;

  bool scrolledToTime_ = false;

  VenueButtonRow* venueButtons_ = nullptr;
  ScheduleHeaderView* header_ = nullptr;
  QScrollArea* scroller_ = nullptr;
  WeeklyScheduleView* page_ = nullptr;
  TextLabel* itemInfoField_ = nullptr;
  QCheckBox* fitVerticallyCheckbox_ = nullptr;
  std::unique_ptr<Timer> itemInfoTimer_;
};

}  // namespace tarvel
