#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/ScheduleItem.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const WeekFile& week) {
  DataEncoder out;
  out.putDouble(week.fileDate.seconds);
  putList(out, week.items, [&](const ScheduleItemRecord& item) {
    out.putInt8(static_cast<std::int8_t>(item.kind));
    out.putInt8(static_cast<std::int8_t>(item.day));
    out.putInt16(static_cast<std::int16_t>(item.time));
    out.putInt16(static_cast<std::int16_t>(item.duration));
    out.putString(item.subtitle);
    out.putString(item.note);
  });
  return out.data();
}

}  // namespace

void weekFile(ByteView input) {
  const auto week = roundTrip(input, decodeWeekFile, encode);
  if (!week) return;
  for (const ScheduleItemRecord& record : week->items) {
    const ScheduleItem item(record, {}, packedDate(2026, 3, 1));
    require(!item.description().empty(), "a session has a description");
  }
}

}  // namespace tarvel::fuzz
