#include "schedule/ScheduleChime.h"

#include <algorithm>
#include <utility>

#include "model/RinkData.h"

namespace tarvel {
namespace {

bool isSession(const std::shared_ptr<const ScheduleItem>& item) {
  return item && item->kind != SessionKind::resurface;
}

}  // namespace

std::shared_ptr<const ScheduleItem> itemAtTime(const ScheduleItems& items, std::int64_t minutes) {
  const auto item = std::find_if(items.begin(), items.end(),
                                 [minutes](const auto& i) { return i->time + i->duration > minutes; });
  return item != items.end() && (*item)->time <= minutes ? *item : nullptr;
}

void ScheduleChime::loadData(const RinkData* rink, std::int64_t chimeVenueID, PackedDate date,
                             std::int64_t time) {
  todayScheduleItems_.clear();
  currentItem_ = nullptr;
  const auto venue = rink && chimeVenueID != 0 ? rink->venue(chimeVenueID) : nullptr;
  const auto schedule = venue ? venue->weeklySchedule(startOfWeek(date)) : nullptr;
  const auto items = schedule ? schedule->items() : nullptr;
  if (!items) return;
  for (const auto& item : *items) {
    if (item->day == weekdayOf(date)) todayScheduleItems_.push_back(item);
  }
  currentItem_ = itemAtTime(todayScheduleItems_, time);
}

bool ScheduleChime::advance(std::int64_t from, std::int64_t to) {
  auto item = itemAtTime(todayScheduleItems_, to);
  if (item == currentItem_) return false;
  const auto before = std::exchange(currentItem_, std::move(item));
  return to == from + 1 && (isSession(before) || isSession(currentItem_));
}

}  // namespace tarvel
