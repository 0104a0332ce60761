#pragma once
#include <memory>

#include "model/ScheduleItem.h"

namespace tarvel {

class RinkData;

/// The item under way at that minute in a list of one day: the first one that ends later, if it has begun.
/// Null if there is none.
std::shared_ptr<const ScheduleItem> itemAtTime(const ScheduleItems& items, std::int64_t minutes);

/// Follows the sessions of one venue through the day and says when a chime is due: when the minute goes on by
/// one and another session begins or one ends. A jump of the clock stays silent, and so does a change between
/// resurfacing and nothing. A plain value.
class ScheduleChime {
 public:
  /// The day's items of the chime's venue, as far as they are at hand; asking may fetch the week. With no
  /// venue (0) or no rink there are none.
  void loadData(const RinkData* rink, std::int64_t chimeVenueID, PackedDate date, std::int64_t time);
  /// The clock goes from one minute to another; true if a chime is due.
  bool advance(std::int64_t from, std::int64_t to);

  const ScheduleItems& todayScheduleItems() const { return todayScheduleItems_; }
  const std::shared_ptr<const ScheduleItem>& currentItem() const { return currentItem_; }

 private:
  ScheduleItems todayScheduleItems_;
  std::shared_ptr<const ScheduleItem> currentItem_;
};

}  // namespace tarvel
