#pragma once
#include <cstdint>
#include <memory>
#include <vector>

namespace tarvel {

class RinkData;
class Venue;

/// The venues of a rink that a window has chosen. The window works on a copy; the rink keeps the choice from
/// window to window and run to run. A plain record.
struct ChosenVenues {
  std::int64_t chimeVenueID = 0;         ///< 0 for no chime
  std::int64_t weeklyChosenVenueID = 0;  ///< 0 for none yet
  std::vector<std::int64_t> dailyChosenVenueIDs;

  static ChosenVenues of(const RinkData& rink);
  void storeInto(RinkData& rink) const;

  /// Drops what the rink doesn't have, and chooses the first venue where nothing is left. `venues` are in
  /// their order of display. Without venues the weekly choice stays as it was.
  void settle(const std::vector<std::shared_ptr<Venue>>& venues);
  /// At the end: the daily view's list keeps the order of clicking. False if nothing changes.
  bool addDailyVenue(std::int64_t venueID);
  /// Also the last one may go. False if nothing changes.
  bool removeDailyVenue(std::int64_t venueID);
  bool holdsDaily(std::int64_t venueID) const;
};

/// The rink's venues in their order of display; none without a rink.
std::vector<std::shared_ptr<Venue>> venuesInOrder(const RinkData* rink);

}  // namespace tarvel
