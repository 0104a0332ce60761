#include "model/ScheduleFiles.h"

#include "model/FileDate.h"
#include "platform/FatalError.h"

namespace tarvel {

namespace {

constexpr std::uint64_t kLeastItemBytes = 8;

SessionKind sessionKindOf(std::int8_t raw) {
  // There is no neutral kind to fall back on: a server that publishes an unknown one is ahead of this
  // application.
  if (raw < 0 || raw >= kSessionKindCount) fatalError("unknown session kind in a week file");
  return static_cast<SessionKind>(raw);
}

}  // namespace

SchedulesFile decodeSchedulesFile(ByteView file) {
  DataDecoder decoder(file);
  SchedulesFile schedules;
  schedules.fileDate = getFileDate(decoder);
  schedules.weeks = decodeFileRecords(decoder);
  return schedules;
}

WeekFile decodeWeekFile(ByteView file) {
  DataDecoder decoder(file);
  WeekFile week;
  week.fileDate = getFileDate(decoder);
  const std::int64_t count = decoder.getCount(kLeastItemBytes);
  week.items.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    // A braced list is read from its left to its right, as the fields stand in the file.
    week.items.push_back({.kind = sessionKindOf(decoder.getInt8()),
                          .day = decoder.getInt8(),
                          .time = decoder.getInt16(),
                          .duration = decoder.getInt16(),
                          .subtitle = decoder.getString(),
                          .note = decoder.getString()});
  }
  return week;
}

}  // namespace tarvel
