#pragma once
#include "WeekPlan.h"

namespace tarvel::demo {

/// The week of a dance, party, meeting or class room.
std::vector<PlannedSession> planRoom(const DemoRink& rink, const DemoVenue& venue,
                                     const WeekRequest& request);

/// The week of a locker room: the teams that play on the sheet whose week is given, from half an hour before.
std::vector<PlannedSession> planLockers(const std::vector<PlannedSession>& sheetWeek);

}  // namespace tarvel::demo
