#pragma once
#include "schedule/DailyLayout.h"
#include "schedule/ScheduleContents.h"
#include "schedule/SchedulePageView.h"

namespace tarvel {

/// One day as one column a venue on one axis, so that all sheets of a rink can be read side by side. Its
/// owner tells it rink, day, venues and span of the day.
class DailyScheduleView : public SchedulePageView, Counted<DailyScheduleView> {
  Q_OBJECT
 public:
  using Counted<DailyScheduleView>::liveCount;

  DailyScheduleView(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent = nullptr);

  /// Takes those of the ids that the chosen rink has; the columns stand by display order. After the rink:
  /// another one leaves the page without venues.
  void setChosenVenues(const std::vector<std::int64_t>& venueIDs);
  const Venues& chosenVenues() const { return chosenVenues_; }
  void setShowingDate(PackedDate date);
  PackedDate showingDate() const { return showingDate_; }
  DayRange dayRange() const override;

  const DailyLayout& layout() const { return layout_; }
  /// The day's items, by their column.
  const DailyColumns& columns() const { return contents_.columns; }

  double heightForAvailableHeight(double height) const override;
  /// Also while data is awaited, so that a page made just now can be scrolled.
  void adjustSize() override;
  void pageDidBecomeCurrent() override;

 protected:
  const ScheduleGrid& grid() const override { return layout_.grid(); }
  bool showsDate(PackedDate date) const override { return date != kNoDate && date == showingDate_; }
  PackedDate dateOfColumn(std::int64_t) const override { return showingDate_; }
  std::int64_t venueOfColumn(std::int64_t column) const override;
  ScheduleSpot spotAt(const GridHit& hit) const override;
  ScheduleItems itemsOfColumn(std::int64_t column) const override;
  std::string columnName(std::int64_t column) const override;
  std::string_view gapName() const override { return "-- Gap --"; }
  std::optional<Rect> timeMarkerRect() const override;
  bool concerns(std::int64_t venueID, PackedDate weekOf) const override;
  void readSchedules() override;
  void chosenRinkChanged(const RinkData* rink) override;
  void draw(QPainter& painter, const Rect& dirty) override;

 private:
  PackedDate showingDate_ = kNoDate;
  Venues chosenVenues_;
  DayContents contents_;
  ItemTextWidths widest_;  ///< of the contents, in the present font size
  DailyLayout layout_;
};

}  // namespace tarvel
