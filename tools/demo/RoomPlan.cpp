#include "RoomPlan.h"

#include <algorithm>
#include <array>
#include <span>

#include "IcePlan.h"

namespace tarvel::demo {
namespace {

struct RoomOffer {
  const char* kind;
  const char* subtitle;
  int duration;
};

/// A place in a room's week that is mostly taken.
struct RoomSlot {
  unsigned days;
  int time;
  double taken;
};

struct RoomTable {
  VenueUse use;
  std::span<const RoomSlot> slots;
  std::span<const RoomOffer> offers;
};

constexpr unsigned kWeekdays = 0b0111110;
constexpr unsigned kWeekend = 0b1000001;
constexpr unsigned kFridayToSunday = 0b1100001;

constexpr int at(int hour, int minute = 0) {
  return hour * 60 + minute;
}

constexpr std::array kDanceSlots = {
    RoomSlot{kWeekdays, at(6, 15), 0.6},  RoomSlot{kWeekdays, at(9, 30), 0.5},
    RoomSlot{kWeekdays, at(15, 45), 0.9}, RoomSlot{kWeekdays, at(16, 45), 0.9},
    RoomSlot{kWeekdays, at(18), 0.8},     RoomSlot{kWeekdays, at(19, 15), 0.7},
    RoomSlot{kWeekend, at(8, 30), 0.9},   RoomSlot{kWeekend, at(9, 45), 0.7},
    RoomSlot{kWeekend, at(11), 0.5},
};
constexpr std::array kDanceOffers = {
    RoomOffer{"groupExerciseClass", "Off-Ice Conditioning", 45},
    RoomOffer{"groupExerciseClass", "Yoga for Skaters", 60},
    RoomOffer{"groupExerciseClass", "Strength and Balance", 45},
    RoomOffer{"otherClass", "Ballet for Skaters", 60},
    RoomOffer{"otherClass", "Stretch and Flexibility", 45},
};

constexpr std::array kPartySlots = {
    RoomSlot{kFridayToSunday, at(11), 0.7}, RoomSlot{kFridayToSunday, at(13), 0.9},
    RoomSlot{kFridayToSunday, at(15), 0.9}, RoomSlot{kFridayToSunday, at(17), 0.7},
    RoomSlot{kFridayToSunday, at(19), 0.5}, RoomSlot{kWeekdays & ~kFridayToSunday, at(16, 30), 0.25},
};
constexpr std::array kPartyOffers = {
    RoomOffer{"party", "Birthday Party", 90},
    RoomOffer{"party", "", 105},
    RoomOffer{"party", "Team Party", 90},
    RoomOffer{"rental", "Private Group", 105},
};

constexpr std::array kMeetingSlots = {
    RoomSlot{kWeekdays, at(9), 0.5},
    RoomSlot{kWeekdays, at(12), 0.3},
    RoomSlot{kWeekdays, at(18, 30), 0.5},
    RoomSlot{kWeekend, at(10), 0.3},
};
constexpr std::array kMeetingOffers = {
    RoomOffer{"meeting", "Staff", 60},           RoomOffer{"meeting", "Hockey Club Board", 90},
    RoomOffer{"meeting", "Skating Club", 75},    RoomOffer{"meeting", "Coaches", 60},
    RoomOffer{"meeting", "League Captains", 90},
};

constexpr std::array kClassSlots = {
    RoomSlot{kWeekdays, at(10), 0.4},
    RoomSlot{kWeekdays, at(17), 0.6},
    RoomSlot{kWeekdays, at(19), 0.4},
    RoomSlot{kWeekend, at(9), 0.7},
};
constexpr std::array kClassOffers = {
    RoomOffer{"otherClass", "Rules and Judging", 60},
    RoomOffer{"otherClass", "First Aid", 90},
    RoomOffer{"otherClass", "Hockey Chalk Talk", 45},
    RoomOffer{"meeting", "Parents' Evening", 60},
};

const std::array kTables = {
    RoomTable{VenueUse::dance, kDanceSlots, kDanceOffers},
    RoomTable{VenueUse::party, kPartySlots, kPartyOffers},
    RoomTable{VenueUse::meeting, kMeetingSlots, kMeetingOffers},
    RoomTable{VenueUse::classes, kClassSlots, kClassOffers},
};

}  // namespace

std::vector<PlannedSession> planRoom(const DemoRink& rink, const DemoVenue& venue,
                                     const WeekRequest& request) {
  std::vector<PlannedSession> week;
  const auto table = std::find_if(kTables.begin(), kTables.end(),
                                  [&](const RoomTable& each) { return each.use == venue.use; });
  if (table == kTables.end()) return week;
  for (int day = 0; day < 7; ++day) {
    Random random = dayChoices(rink, venue, request, day);
    int freeFrom = 0;
    for (const RoomSlot& slot : table->slots) {
      const RoomOffer& offer = random.pick(table->offers);
      const bool taken = random.chance(slot.taken);
      if ((slot.days >> day & 1U) == 0 || !taken || slot.time < freeFrom) continue;
      week.push_back({offer.kind, day, slot.time, offer.duration, offer.subtitle, ""});
      freeFrom = slot.time + offer.duration;
    }
  }
  return week;
}

std::vector<PlannedSession> planLockers(const std::vector<PlannedSession>& sheetWeek) {
  constexpr int kBefore = 30;
  constexpr int kAfter = 15;
  constexpr int kMinutesPerDay = 1440;
  std::vector<PlannedSession> week;
  int freeFrom = 0;
  for (const PlannedSession& session : sheetWeek) {
    if (session.kind != "hockeyPractice" && session.kind != "hockeyGame") continue;
    const int midnight = session.day * kMinutesPerDay;
    const int from = std::max(midnight + session.time - kBefore, freeFrom);
    const int until = midnight + session.time + session.duration + kAfter;
    freeFrom = until;
    week.push_back({"privateSession", session.day, from - midnight, until - from, session.subtitle, ""});
  }
  return week;
}

}  // namespace tarvel::demo
