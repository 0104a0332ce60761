#include "mainwindow/ChosenVenues.h"

#include <algorithm>

#include "model/RinkData.h"

namespace tarvel {
namespace {

bool exists(const std::vector<std::shared_ptr<Venue>>& venues, std::int64_t venueID) {
  return std::any_of(venues.begin(), venues.end(),
                     [venueID](const auto& venue) { return venue->venueID == venueID; });
}

}  // namespace

ChosenVenues ChosenVenues::of(const RinkData& rink) {
  return {rink.chimeVenueID, rink.weeklyVenueID, rink.dailyVenueIDs};
}

void ChosenVenues::storeInto(RinkData& rink) const {
  rink.chimeVenueID = chimeVenueID;
  rink.weeklyVenueID = weeklyChosenVenueID;
  rink.dailyVenueIDs = dailyChosenVenueIDs;
}

void ChosenVenues::settle(const std::vector<std::shared_ptr<Venue>>& venues) {
  const bool kept = weeklyChosenVenueID != 0 && exists(venues, weeklyChosenVenueID);
  if (!kept && !venues.empty()) weeklyChosenVenueID = venues.front()->venueID;
  std::erase_if(dailyChosenVenueIDs, [&](std::int64_t id) { return !exists(venues, id); });
  if (dailyChosenVenueIDs.empty() && !venues.empty()) dailyChosenVenueIDs = {venues.front()->venueID};
}

bool ChosenVenues::addDailyVenue(std::int64_t venueID) {
  if (holdsDaily(venueID)) return false;
  dailyChosenVenueIDs.push_back(venueID);
  return true;
}

bool ChosenVenues::removeDailyVenue(std::int64_t venueID) {
  return std::erase(dailyChosenVenueIDs, venueID) > 0;
}

bool ChosenVenues::holdsDaily(std::int64_t venueID) const {
  return std::find(dailyChosenVenueIDs.begin(), dailyChosenVenueIDs.end(), venueID) !=
         dailyChosenVenueIDs.end();
}

std::vector<std::shared_ptr<Venue>> venuesInOrder(const RinkData* rink) {
  std::vector<std::shared_ptr<Venue>> venues;
  if (rink) venues = rink->venues;
  std::stable_sort(venues.begin(), venues.end(),
                   [](const auto& a, const auto& b) { return displaysBefore(*a, *b); });
  return venues;
}

}  // namespace tarvel
