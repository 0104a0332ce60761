#include "schedule/ScheduleContents.h"

#include <algorithm>

namespace tarvel {

Venues venuesOf(const RinkData* rink, const std::vector<std::int64_t>& venueIDs) {
  Venues venues;
  if (!rink) return venues;
  for (const std::int64_t venueID : venueIDs) {
    if (auto venue = rink->venue(venueID)) venues.push_back(std::move(venue));
  }
  std::stable_sort(venues.begin(), venues.end(),
                   [](const auto& a, const auto& b) { return a->displayOrder < b->displayOrder; });
  return venues;
}

std::shared_ptr<Venue> firstVenue(const RinkData& rink) {
  const auto first =
      std::min_element(rink.venues.begin(), rink.venues.end(),
                       [](const auto& a, const auto& b) { return a->displayOrder < b->displayOrder; });
  return first == rink.venues.end() ? nullptr : *first;
}

WeekContents weekContents(const RinkData* rink, std::int64_t venueID, PackedDate weekOf) {
  WeekContents contents{nullptr, std::make_shared<const ScheduleItems>()};
  if (!rink || weekOf < rink->firstWeek || weekOf > rink->lastWeek) return contents;
  const auto venue = rink->venue(venueID);
  contents.schedule = venue ? venue->weeklySchedule(weekOf) : nullptr;
  if (const auto items = contents.schedule ? contents.schedule->items() : nullptr) contents.items = items;
  return contents;
}

DayContents dayContents(const Venues& venues, PackedDate date) {
  DayContents contents;
  contents.columns.resize(venues.size());
  if (date == kNoDate) return contents;
  const std::int64_t day = weekdayOf(date);
  for (std::size_t column = 0; column < venues.size(); ++column) {
    const auto schedule = venues[column]->weeklySchedule(startOfWeek(date));
    const auto items = schedule ? schedule->items() : nullptr;
    if (!items) continue;
    contents.weeklySchedules.push_back(schedule);
    std::copy_if(items->begin(), items->end(), std::back_inserter(contents.columns[column]),
                 [day](const auto& item) { return item->day == day; });
  }
  return contents;
}

}  // namespace tarvel
