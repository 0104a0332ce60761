#pragma once
#include <memory>
#include <vector>

#include "model/RinkData.h"
#include "schedule/DailyLayout.h"

namespace tarvel {

using Venues = std::vector<std::shared_ptr<Venue>>;

/// The rink's venues of those ids, by their display order; ids that the rink doesn't have are passed over.
/// None without a rink.
Venues venuesOf(const RinkData* rink, const std::vector<std::int64_t>& venueIDs);
/// The one to show where none is chosen: the first by display order. Null if the rink has none.
std::shared_ptr<Venue> firstVenue(const RinkData& rink);

/// What there is to show of one venue's week. Asking for it may have its file requested.
struct WeekContents {
  std::shared_ptr<WeeklySchedule> schedule;    ///< null for a week that the rink doesn't offer
  std::shared_ptr<const ScheduleItems> items;  ///< never null
};
WeekContents weekContents(const RinkData* rink, std::int64_t venueID, PackedDate weekOf);

/// What there is to show of one day of several venues. Asking for it may have files requested.
struct DayContents {
  /// One a venue; the items are those filed under the day, also where they begin after its midnight.
  DailyColumns columns;
  std::vector<std::shared_ptr<WeeklySchedule>> weeklySchedules;  ///< those whose items are known
};
DayContents dayContents(const Venues& venues, PackedDate date);

}  // namespace tarvel
