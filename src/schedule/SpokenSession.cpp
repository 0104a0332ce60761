#include "schedule/SpokenSession.h"

#include <fmt/format.h>

#include "foundation/TextFormats.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {

QString spokenSession(const ScheduleItem& item, PackedDate filedOn, const std::string& sessionName) {
  const PackedDate date = item.time >= kMinutesPerDay ? nextDay(filedOn) : filedOn;
  const std::string times = timeText(item.time) + " to " + timeText(item.time + item.duration);
  std::string spoken;
  for (const std::string& part : {sessionName, times, item.subtitle, item.note, fullDateText(date)}) {
    if (part.empty()) continue;
    if (!spoken.empty()) spoken += ", ";
    spoken += part;
  }
  return QString::fromStdString(spoken);
}

QString sessionKey(const ScheduleItem& item, PackedDate filedOn, std::int64_t venueID) {
  return QString::fromStdString(fmt::format("{}/{}/{}/{}/{}/{}", filedOn, venueID, item.time, item.duration,
                                            static_cast<int>(item.kind), item.subtitle));
}

}  // namespace tarvel
