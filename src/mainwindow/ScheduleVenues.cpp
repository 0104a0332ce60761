// The part of `ScheduleController` that concerns the venues of the rink and the chime.
#include <algorithm>

#include "foundation/TextFormats.h"
#include "mainwindow/ScheduleController.h"
#include "platform/Console.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/WeeklyScheduleView.h"

namespace tarvel {

void ScheduleController::updateVenues() {
  const auto venues = venuesInOrder(rink_.lock().get());
  venues_.settle(venues);
  std::vector<VenueChoice> choices;
  for (const auto& venue : venues) {
    const bool on =
        isDaily() ? venues_.holdsDaily(venue->venueID) : venue->venueID == venues_.weeklyChosenVenueID;
    choices.push_back({venue->displayName(), venue->venueID, on});
  }
  sidebar().setVenues(choices, isDaily() ? VenueButtonKind::checkBox : VenueButtonKind::radio);
}

void ScheduleController::updateChimePopUp() {
  std::vector<ChimeItem> items;
  for (const auto& venue : venuesInOrder(rink_.lock().get())) {
    items.push_back({venue->displayName(), venue->venueID});
  }
  sidebar().setChimeItems(items);
  sidebar().selectChime(venues_.chimeVenueID);
}

void ScheduleController::toggleVenue(std::int64_t venueID, bool on) {
  if (isDaily()) {
    if (on ? venues_.addDailyVenue(venueID) : venues_.removeDailyVenue(venueID)) handDailyVenues();
    redrawScheduleHeader();
    // Another number of columns may have another size of text.
    updateFontSize();
  } else if (on) {
    setWeeklyVenue(venueID);
  }
  storeChosenVenues();
  context_.application.markChanged();
}

void ScheduleController::handDailyVenues() {
  forEachPage([this](SchedulePageView& page) {
    if (auto* day = dynamic_cast<DailyScheduleView*>(&page)) {
      day->setChosenVenues(venues_.dailyChosenVenueIDs);
    }
  });
}

void ScheduleController::setWeeklyVenue(std::int64_t venueID) {
  venues_.weeklyChosenVenueID = venueID;
  updateHeader();
  forEachPage([venueID](SchedulePageView& page) {
    if (auto* week = dynamic_cast<WeeklyScheduleView*>(&page)) week->setChosenVenueID(venueID);
  });
}

void ScheduleController::chooseChimeOption(std::int64_t venueID) {
  // From one venue to another the sessions of the first go on being followed until the next pass.
  const bool switched = (venueID == 0) != (venues_.chimeVenueID == 0);
  venues_.chimeVenueID = venueID;
  if (switched) host_.requestDataPass();
  storeChosenVenues();
  context_.application.markChanged();
}

void ScheduleController::loadData() {
  chime_.loadData(rink_.lock().get(), venues_.chimeVenueID, currentDate_, currentTime_);
}

void ScheduleController::weeklyScheduleChanged(PackedDate weekOf) {
  if (startOfWeek(currentDate_) == weekOf) host_.requestDataPass();
}

void ScheduleController::chime(std::int64_t time) {
  if (!isFrontmostChime(host_)) return;
  context_.services.console.printLine("Chime at " + timeText(time));
  context_.sounds.playSound(kGlassChimeSound);
}

}  // namespace tarvel
