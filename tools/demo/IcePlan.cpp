#include "IcePlan.h"

#include <fmt/format.h>

#include <array>

#include "SessionTexts.h"

namespace tarvel::demo {
namespace {

constexpr int kResurfacing = 15;
constexpr int kShortest = 45;
constexpr double kOwnDay = 0.18;  ///< part of the days that leave the weekly pattern

constexpr unsigned kWeekdays = 0b0111110;
constexpr unsigned kWeekend = 0b1000001;
constexpr unsigned kSaturday = 0b1000000;
constexpr unsigned kSunday = 0b0000001;
constexpr unsigned kFriday = 0b0100000;
constexpr unsigned kAllDays = 0b1111111;

constexpr int at(int hour, int minute = 0) {
  return hour * 60 + minute;
}

/// A session that can be had when the ice is free between `from` and `to`. The weights say how likely each
/// use of a sheet makes it.
struct Offer {
  unsigned days;
  int from;
  int to;
  const char* kind;
  std::array<int, 2> durations;
  int figure;
  int hockey;
  int family;
};

constexpr std::array kOffers = {
    Offer{kWeekdays, at(5), at(8, 45), "freestyle", {60, 60}, 9, 3, 6},
    Offer{kWeekdays, at(5), at(7, 30), "hockeyPickup", {75, 75}, 0, 4, 1},
    Offer{kWeekdays, at(5, 30), at(8), "synchro", {75, 90}, 2, 0, 1},
    Offer{kWeekdays, at(6), at(9), "hockeyPractice", {60, 75}, 0, 5, 1},
    Offer{kWeekdays, at(7), at(10), "privateTraining", {45, 60}, 3, 2, 2},
    Offer{kWeekdays, at(8, 45), at(11), "publicSession", {90, 105}, 2, 2, 6},
    Offer{kWeekdays, at(8, 45), at(11, 30), "skatingSchool", {45, 60}, 3, 2, 4},
    Offer{kWeekdays, at(8, 30), at(11, 30), "hockeyStickTime", {75, 90}, 0, 5, 2},
    Offer{kWeekdays, at(9), at(12), "other", {60, 60}, 1, 1, 2},
    Offer{kWeekdays, at(11, 15), at(13, 15), "publicSession", {90, 120}, 9, 5, 14},
    Offer{kWeekdays, at(11, 30), at(14), "hockeyPickup", {75, 90}, 0, 5, 1},
    Offer{kWeekdays, at(13), at(15, 30), "freestyle", {60, 60}, 8, 2, 3},
    Offer{kWeekdays, at(13), at(15, 45), "rental", {60, 75}, 1, 3, 3},
    Offer{kWeekdays, at(13), at(15, 30), "privateSession", {60, 75}, 2, 2, 2},
    Offer{kWeekdays, at(13), at(15, 30), "hockeyStickTime", {75, 75}, 0, 4, 2},
    Offer{kWeekdays, at(15), at(18), "freestyle", {60, 60}, 9, 1, 3},
    Offer{kWeekdays, at(15, 30), at(18, 30), "skatingSchool", {45, 60}, 6, 2, 8},
    Offer{kWeekdays, at(15, 30), at(21), "hockeyPractice", {60, 75}, 1, 14, 4},
    Offer{kWeekdays, at(17, 30), at(20, 30), "synchro", {75, 90}, 5, 0, 1},
    Offer{kWeekdays, at(18), at(20, 30), "freestyle", {60, 60}, 5, 0, 1},
    Offer{kWeekdays, at(18, 30), at(20, 15), "publicSession", {90, 105}, 2, 1, 7},
    Offer{kFriday, at(18, 30), at(21), "publicSession", {120, 150}, 12, 4, 40},
    Offer{kWeekdays, at(19, 30), at(22), "skatingSchool", {60, 60}, 3, 1, 2},
    Offer{kWeekdays, at(20), at(23), "hockeyGame", {75, 75}, 2, 12, 4},
    Offer{kWeekdays, at(20, 30), at(23), "hockeyPickup", {75, 90}, 2, 4, 3},
    Offer{kWeekdays, at(20, 30), at(23), "broomball", {60, 75}, 1, 1, 2},
    Offer{kWeekdays, at(21), at(23), "rental", {60, 75}, 2, 2, 2},
    Offer{kWeekend, at(5), at(8), "freestyle", {60, 60}, 9, 1, 3},
    Offer{kWeekend, at(6), at(12), "hockeyGame", {75, 90}, 1, 12, 4},
    Offer{kWeekend, at(6), at(10), "hockeyPractice", {60, 60}, 1, 5, 3},
    Offer{kSaturday, at(8), at(11, 30), "skatingSchool", {45, 60}, 12, 2, 14},
    Offer{kSunday, at(8), at(11), "synchro", {90, 90}, 8, 0, 1},
    Offer{kSunday, at(9), at(12), "privateTraining", {60, 60}, 4, 2, 2},
    Offer{kWeekend, at(11, 30), at(14), "publicSession", {120, 150}, 16, 5, 40},
    Offer{kWeekend, at(14), at(18, 30), "publicSession", {105, 120}, 6, 2, 14},
    Offer{kWeekend, at(12), at(19), "hockeyGame", {75, 90}, 1, 14, 3},
    Offer{kWeekend, at(14), at(20), "rental", {60, 90}, 3, 3, 4},
    Offer{kWeekend, at(14), at(19), "privateSession", {60, 60}, 2, 1, 3},
    Offer{kWeekend, at(14), at(17), "freestyle", {60, 60}, 6, 0, 1},
    Offer{kSaturday, at(18, 30), at(21, 30), "publicSession", {120, 150}, 12, 3, 30},
    Offer{kSunday, at(17), at(21), "hockeyStickTime", {75, 75}, 1, 5, 4},
    Offer{kSunday, at(18, 30), at(22), "broomball", {75, 75}, 2, 1, 5},
    Offer{kWeekend, at(19), at(23), "hockeyGame", {75, 75}, 2, 12, 4},
    Offer{kWeekend, at(20), at(23), "hockeyPickup", {90, 90}, 2, 3, 3},
    Offer{kSaturday, at(20), at(23), "specialEvent", {90, 120}, 3, 0, 2},
    Offer{kAllDays, at(5), at(23), "other", {60, 60}, 1, 1, 1},
};

int weightOf(const Offer& offer, VenueUse use) {
  if (use == VenueUse::figure) return offer.figure;
  return use == VenueUse::hockey ? offer.hockey : offer.family;
}

/// One of the offers for that start, by weight. The same kind twice running is less likely, but for freestyle
/// and hockey, which do come in rows.
const Offer* choose(Random& random, int day, int time, VenueUse use, const std::string& before) {
  std::array<int, kOffers.size()> weights{};
  int sum = 0;
  for (std::size_t i = 0; i < kOffers.size(); ++i) {
    const Offer& offer = kOffers[i];
    if ((offer.days >> day & 1U) == 0 || time < offer.from || time >= offer.to) continue;
    const std::string kind = offer.kind;
    const bool comesInRows = kind == "freestyle" || kind == "hockeyPractice" || kind == "hockeyGame";
    const bool repeats = kind == before && !comesInRows;
    weights[i] = repeats ? 0 : weightOf(offer, use);
    sum += weights[i];
  }
  if (sum == 0) return nullptr;
  int drawn = random.below(sum);
  for (std::size_t i = 0; i < kOffers.size(); ++i) {
    drawn -= weights[i];
    if (drawn < 0) return &kOffers[i];
  }
  return nullptr;
}

class DayPlanner {
 public:
  DayPlanner(Random& random, int day, std::vector<PlannedSession>& week)
      : random_(random), day_(day), week_(week) {}

  void fill(int opens, int closes, VenueUse use) {
    std::string before;
    for (int time = opens; closes - time >= kShortest;) {
      const Offer* offer = choose(random_, day_, time, use, before);
      if (!offer) {
        time += kResurfacing;
        continue;
      }
      const int duration =
          std::min(offer->durations[static_cast<std::size_t>(random_.below(2))], closes - time);
      add(offer->kind, time, duration);
      before = offer->kind;
      time += duration;
      if (closes - time < kResurfacing + kShortest) break;
      resurface(time);
      time += kResurfacing;
    }
  }

  void add(const std::string& kind, int time, int duration) {
    const SessionText text = sessionText(random_, kind, time);
    week_.push_back({kind, day_, time, duration, text.subtitle, text.note});
  }

  void resurface(int time) { week_.push_back({"resurface", day_, time, kResurfacing, "", ""}); }

 private:
  Random& random_;
  int day_;
  std::vector<PlannedSession>& week_;
};

/// A competition takes the first sheet for a whole Saturday, in one week of five.
bool hasCompetition(const DemoRink& rink, const DemoVenue& venue, PackedDate weekOf, int day) {
  const int weekOfYear = (monthOf(weekOf) * 31 + dayOf(weekOf)) / 7;
  return day == 6 && venue.venueID == 1 && (weekOfYear + static_cast<int>(rink.rinkID)) % 5 == 0;
}

void planCompetition(DayPlanner& planner) {
  planner.add("specialEvent", at(7), 225);
  planner.resurface(at(10, 45));
  planner.add("specialEvent", at(11), 240);
  planner.resurface(at(15));
  planner.add("specialEvent", at(15, 15), 225);
  planner.resurface(at(19));
  planner.add("publicSession", at(19, 15), 120);
}

/// On Friday and Saturday nights the last league games begin before midnight and end after it, and the
/// Saturday has a session that begins after midnight too.
void planLateNight(DayPlanner& planner, int day) {
  planner.resurface(at(22, 45));
  planner.add("hockeyGame", at(23), 75);
  planner.resurface(at(24, 15));
  planner.add(day == 6 ? "broomball" : "hockeyPickup", at(24, 30), 75);
}

}  // namespace

Random dayChoices(const DemoRink& rink, const DemoVenue& venue, const WeekRequest& request, int day) {
  const auto rinkKey = static_cast<std::uint64_t>(rink.rinkID);
  const auto venueKey = static_cast<std::uint64_t>(venue.venueID);
  const auto dayKey = static_cast<std::uint64_t>(day);
  Random own{request.seed, rinkKey, venueKey, dayKey, request.weekOf, request.edition};
  if (request.edition != 0 || own.chance(kOwnDay)) return own;
  return {request.seed, rinkKey, venueKey, dayKey};
}

std::vector<PlannedSession> planIce(const DemoRink& rink, const DemoVenue& venue,
                                    const WeekRequest& request) {
  std::vector<PlannedSession> week;
  for (int day = 0; day < 7; ++day) {
    Random random = dayChoices(rink, venue, request, day);
    DayPlanner planner(random, day, week);
    if (hasCompetition(rink, venue, request.weekOf, day)) {
      planCompetition(planner);
      continue;
    }
    const bool weekend = day == 0 || day == 6;
    const int opens = weekend ? rink.opens + 30 : rink.opens;
    const bool late = rink.lateNights == LateNights::weekends && day >= 5 && venue.use == VenueUse::hockey;
    planner.fill(opens, late ? at(22, 45) : rink.closes, venue.use);
    if (late) planLateNight(planner, day);
  }
  return week;
}

}  // namespace tarvel::demo
