#include "app/TodayOpening.h"

#include <algorithm>

#include "mainwindow/MainWindowController.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/WeeklyScheduleView.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel {
namespace {

/// Null if the window doesn't show one of the rink's.
std::shared_ptr<Venue> shownVenue(const MainWindowController& main, const RinkData& rink) {
  if (main.currentPaneKind() != MainWindowPane::schedule) return nullptr;
  const SchedulePageView* page = main.schedule().currentPage();
  if (const auto* week = dynamic_cast<const WeeklyScheduleView*>(page))
    return rink.venue(week->chosenVenueID());
  const auto* day = dynamic_cast<const DailyScheduleView*>(page);
  if (!day) return nullptr;
  const Venues& chosen = day->chosenVenues();
  const auto found = std::find_if(rink.venues.begin(), rink.venues.end(), [&chosen](const auto& venue) {
    return std::find(chosen.begin(), chosen.end(), venue) != chosen.end();
  });
  return found == rink.venues.end() ? nullptr : *found;
}

}  // namespace

void giveRink(TodayWindowController& today, const MainWindowController* main, DataModel& dataModel) {
  if (const auto rink = main ? main->currentRinkData() : nullptr) {
    today.setChosenRink(rink);
    if (const auto venue = shownVenue(*main, *rink)) today.setChosenVenue(venue);
    return;
  }
  if (today.chosenRink() || dataModel.rinkList.empty()) return;
  today.setChosenRink(dataModel.rinkData(dataModel.rinkList.front()->rinkID));
}

}  // namespace tarvel
