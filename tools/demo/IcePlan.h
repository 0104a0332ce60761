#pragma once
#include "Random.h"
#include "WeekPlan.h"

namespace tarvel::demo {

/// The week of a sheet of ice. From opening to closing one session follows the other, each chosen among those
/// that suit the hour, the weekday and the sheet's use.
std::vector<PlannedSession> planIce(const DemoRink& rink, const DemoVenue& venue, const WeekRequest& request);

/// The stream of choices for one day of a venue: mostly the same in every week, and now and then the week's
/// own.
Random dayChoices(const DemoRink& rink, const DemoVenue& venue, const WeekRequest& request, int day);

}  // namespace tarvel::demo
