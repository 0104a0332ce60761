#pragma once
#include <memory>

#include "model/ScheduleItem.h"
#include "platform/Result.h"

class QPagedPaintDevice;

namespace tarvel {

class DataModel;
class RinkData;

/// What a Today window prints: the day that it shows.
struct TodayToPrint {
  std::shared_ptr<RinkData> rink;
  std::shared_ptr<const WeeklySchedule> schedule;  ///< null prints the headings alone
  ScheduleItems items;                             ///< of the day
  PackedDate date = kNoDate;
};

/// Prints the day on one sheet, as `printSheet` does.
Status printToday(QPagedPaintDevice& device, DataModel& dataModel, const TodayToPrint& today);

}  // namespace tarvel
