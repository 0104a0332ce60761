#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "model/MainFile.h"
#include "model/SessionKind.h"

namespace tarvel {

/// The content of a venue's schedules file: which week files there are, and their dates.
struct SchedulesFile {
  Instant fileDate;
  std::vector<FileRecord> weeks;
};

struct ScheduleItemRecord {
  SessionKind kind = SessionKind::resurface;
  std::int64_t day = 0;       ///< days after the week's Sunday
  std::int64_t time = 0;      ///< minutes after that day's midnight; 1440 and above in the night after
  std::int64_t duration = 0;  ///< minutes
  std::string subtitle;
  std::string note;
};

/// The content of one venue's one week.
struct WeekFile {
  Instant fileDate;
  std::vector<ScheduleItemRecord> items;
};

/// Both throw `DecodeError`; a negative count, or a session of an unknown kind, stops the program.
SchedulesFile decodeSchedulesFile(ByteView file);
WeekFile decodeWeekFile(ByteView file);

}  // namespace tarvel
