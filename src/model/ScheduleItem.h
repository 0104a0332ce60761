#pragma once
#include <memory>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "foundation/InstanceCounter.h"
#include "model/ScheduleFiles.h"

namespace tarvel {

class WeeklySchedule;

/// One session of a week. A resurfacing is an item like any other. Immutable; shared by all views of the
/// week.
class ScheduleItem : public ScheduleItemRecord, Counted<ScheduleItem> {
 public:
  using Counted<ScheduleItem>::liveCount;

  ScheduleItem(ScheduleItemRecord record, std::weak_ptr<const WeeklySchedule> schedule, PackedDate weekOf)
      : ScheduleItemRecord(std::move(record)), weeklySchedule(std::move(schedule)), weekOf_(weekOf) {}

  const std::weak_ptr<const WeeklySchedule> weeklySchedule;

  /// The day on which the item really begins: one later than its column's for a `time` of 1440 or more.
  PackedDate realDate() const;
  /// Minutes after that day's midnight.
  std::int64_t realTime() const;
  /// The built-in name of the kind and the subtitle, with the separator between them; the subtitle alone for
  /// the kinds `other` and `skatingSchool`.
  std::string displayName(std::string_view separator) const;
  /// Day, date, times, duration, name, subtitle and note, as an information popover shows them.
  std::string description() const;

 private:
  PackedDate weekOf_;
};

using ScheduleItems = std::vector<std::shared_ptr<const ScheduleItem>>;

}  // namespace tarvel
