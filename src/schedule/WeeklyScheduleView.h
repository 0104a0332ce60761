#pragma once
#include "schedule/SchedulePageView.h"
#include "schedule/WeeklyLayout.h"

namespace tarvel {

/// One venue's week as seven columns on one axis. Its owner tells it rink, venue, week and span of the day.
class WeeklyScheduleView : public SchedulePageView, Counted<WeeklyScheduleView> {
  Q_OBJECT
 public:
  using Counted<WeeklyScheduleView>::liveCount;

  WeeklyScheduleView(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent = nullptr);

  /// 0 leaves the choice to the view: the first venue by its display order.
  void setChosenVenueID(std::int64_t venueID);
  std::int64_t chosenVenueID() const { return chosenVenueID_; }
  /// Shows the week that holds the date.
  void setWeekContaining(PackedDate date);
  PackedDate weekOf() const { return weekOf_; }
  /// Selects the date if this week holds it, and nothing otherwise.
  void setSelectedDate(PackedDate date);
  PackedDate selectedDate() const { return selectedDate_; }
  /// Nothing happens without a rink.
  void setCurrentDate(PackedDate date, std::int64_t time) override;
  DayRange dayRange() const override { return dayRangeOf(*items_); }

  const WeeklyLayout& layout() const { return layout_; }
  const ScheduleItems& scheduleItems() const { return *items_; }

  double heightForAvailableHeight(double height) const override;
  void adjustSize() override;
  void pageDidBecomeCurrent() override;

 protected:
  const ScheduleGrid& grid() const override { return layout_.grid(); }
  /// Of the week that is to be shown, also while its layout waits for data.
  bool showsDate(PackedDate date) const override;
  PackedDate dateOfColumn(std::int64_t column) const override { return addDays(weekOf_, column); }
  std::int64_t venueOfColumn(std::int64_t) const override { return chosenVenueID_; }
  ScheduleSpot spotAt(const GridHit& hit) const override;
  ScheduleItems itemsOfColumn(std::int64_t column) const override;
  std::string columnName(std::int64_t column) const override { return fullDateText(dateOfColumn(column)); }
  bool isSelectedColumn(std::int64_t column) const override {
    return selectedDate_ != kNoDate && dateOfColumn(column) == selectedDate_;
  }
  std::string_view gapName() const override { return "-- Idle --"; }
  std::optional<Rect> timeMarkerRect() const override;
  bool concerns(std::int64_t venueID, PackedDate weekOf) const override;
  void readSchedules() override;
  void chosenRinkChanged(const RinkData* rink) override;
  void mainStateChanged(bool isMain) override;
  void draw(QPainter& painter, const Rect& dirty) override;

 private:
  PackedDate weekOf_ = kNoDate;
  std::int64_t chosenVenueID_ = 0;
  PackedDate selectedDate_ = kNoDate;
  std::weak_ptr<WeeklySchedule> weeklySchedule_;
  std::shared_ptr<const ScheduleItems> items_;  ///< never null
  WeeklyLayout layout_;
};

}  // namespace tarvel
