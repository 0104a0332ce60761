#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/ScheduleFiles.h"

namespace tarvel::fuzz {

namespace {

Bytes encode(const SchedulesFile& schedules) {
  DataEncoder out;
  out.putDouble(schedules.fileDate.seconds);
  putFileRecords(out, schedules.weeks);
  return out.data();
}

}  // namespace

void schedulesFile(ByteView input) {
  (void)roundTrip(input, decodeSchedulesFile, encode);
}

}  // namespace tarvel::fuzz
