#pragma once
#include <memory>
#include <vector>

#include "foundation/CalendarDates.h"
#include "platform/Result.h"
#include "schedule/ItemPainter.h"
#include "schedule/ScheduleSpot.h"
#include "schedule/ScheduleViewOption.h"

class QPagedPaintDevice;

namespace tarvel {

class DataModel;
class RinkData;

/// What a window prints: the schedule that it shows.
struct ScheduleToPrint {
  ScheduleViewOption form = ScheduleViewOption::weekly;
  std::shared_ptr<RinkData> rink;
  PackedDate date = kNoDate;                ///< the day; of a week, any of its days
  std::int64_t weeklyVenueID = 0;           ///< 0 for the first venue by display order
  std::vector<std::int64_t> dailyVenueIDs;  ///< as they were chosen; those that are gone are passed over
  DayRange dayRange{kDefaultStartOfDay, kDefaultEndOfDay};
  SessionTimes sessionTimes = SessionTimes::hidden;
};

/// Prints a schedule on one page of the device's paper, upright, with the layout and the painting of the
/// screen; texts stay texts. The device must not be painted on yet, and holds the whole page when this
/// returns. Fails if the device can't be painted on, as a file that can't be written.
Status printSchedule(QPagedPaintDevice& device, DataModel& dataModel, const ScheduleToPrint& schedule);

}  // namespace tarvel
