#pragma once
#include <memory>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "schedule/ItemPainter.h"
#include "schedule/ScheduleGrid.h"
#include "schedule/ScheduleViewOption.h"

namespace tarvel {

class PagedView;
class RinkData;

/// Where the columns of the page in view lie; a width of 0 says that there are none.
struct ColumnGeometry {
  double x = 0.0;
  double width = 0.0;
};

/// What a schedule's views ask of the one who shows them. Main thread; outlives the views or is let go of by
/// their `close`.
class ScheduleViewOwner {
 public:
  virtual ~ScheduleViewOwner() = default;

  // Settings:
  virtual VerticalFit fitVertically() const = 0;
  /// Of item names, in the form of the schedule that is shown.
  virtual double fontSize() const = 0;
  virtual SessionTimes showSessionTimes() const = 0;
  virtual ScheduleViewOption scheduleViewOption() const = 0;

  // What is shown:
  virtual std::shared_ptr<RinkData> currentRinkData() const = 0;
  /// The venues chosen for the daily view, in the order of choosing; some may be gone from the rink.
  virtual const std::vector<std::int64_t>& dailyVenueIDs() const = 0;
  /// True for the page that is in view.
  virtual bool isCurrentPage(const PagedView& page) const = 0;
  virtual ColumnGeometry columnGeometry() const = 0;
  virtual void redrawScheduleHeader() = 0;
  /// The current page has loaded another week or day: the span that all pages share may have to grow.
  virtual void updateDayRange() = 0;

  // What the user points at:
  /// False while nobody could see the information on the item under the mouse.
  virtual bool itemInfoShown() const = 0;
  /// The empty text clears the field.
  virtual void showItemInfo(const std::string& text) = 0;
  virtual PackedDate selectedDate() const = 0;
  /// Selects the date on the page whose week holds it and clears the selection of the others; no date clears
  /// all.
  virtual void setSelectedDate(PackedDate date) = 0;
  /// A double click: the user wants to see that moment closer.
  virtual void gotoScheduleItem(std::int64_t venueID, PackedDate date, std::int64_t minute) = 0;
};

}  // namespace tarvel
