#include "WeekPlan.h"

#include <algorithm>

#include "IcePlan.h"
#include "RoomPlan.h"

namespace tarvel::demo {
namespace {

bool isIce(const DemoVenue& venue) {
  return venue.kind == "iceSheet" || venue.kind == "artificialIce";
}

/// The sheet whose teams change in a locker room: the rink's sheets in turn.
const DemoVenue* sheetOf(const DemoRink& rink, const DemoVenue& lockerRoom) {
  std::vector<const DemoVenue*> sheets;
  std::size_t turn = 0;
  for (const DemoVenue& venue : rink.venues) {
    if (isIce(venue) && venue.use == VenueUse::hockey) sheets.push_back(&venue);
    if (venue.use == VenueUse::locker && venue.venueID < lockerRoom.venueID) ++turn;
  }
  return sheets.empty() ? nullptr : sheets[turn % sheets.size()];
}

}  // namespace

std::vector<PlannedSession> planWeek(const DemoRink& rink, const DemoVenue& venue,
                                     const WeekRequest& request) {
  std::vector<PlannedSession> week;
  if (venue.use == VenueUse::locker) {
    if (const DemoVenue* sheet = sheetOf(rink, venue)) week = planLockers(planWeek(rink, *sheet, request));
  } else if (isIce(venue)) {
    week = planIce(rink, venue, request);
  } else {
    week = planRoom(rink, venue, request);
  }
  std::stable_sort(week.begin(), week.end(), [](const PlannedSession& a, const PlannedSession& b) {
    return a.day * 1440 + a.time < b.day * 1440 + b.time;
  });
  return week;
}

}  // namespace tarvel::demo
