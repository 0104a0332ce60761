#include "SessionTexts.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <span>
#include <vector>

namespace tarvel::demo {
namespace {

constexpr std::array<const char*, 10> kTeams = {"Otters", "Herons",   "Bobcats", "Kingfishers", "Badgers",
                                                "Ravens", "Sturgeon", "Foxes",   "Snow Geese",  "Lynx"};
constexpr std::array<const char*, 6> kAges = {"U8", "U10", "U12", "U14", "U16", "U18"};
constexpr std::array<const char*, 4> kLeagues = {"Adult A League", "Adult B League", "Adult C League",
                                                 "Women's League"};

const std::map<std::string, std::vector<const char*>>& subtitles() {
  static const std::map<std::string, std::vector<const char*>> kSubtitles = {
      {"freestyle", {"", "", "High", "Low", "Open", "Adults"}},
      {"publicSession", {"", "", "", "Family Skate", "Coffee Club", "All Ages"}},
      {"skatingSchool",
       {"Learn to Skate: Tots", "Learn to Skate 1–4", "Learn to Skate 5–8", "Adult Beginners",
        "Learn to Play Hockey", "Power Skating"}},
      {"hockeyStickTime", {"", "Ages 12 and under", "Adults"}},
      {"hockeyPickup", {"", "Over 35", "Lunch Hour", "Goalies free"}},
      {"other", {"Adaptive Skating", "Curling for Beginners", "Speed Skating Club", "School Field Trip"}},
      {"synchro", {"Juvenile", "Intermediate", "Adult", "Team Run-Through"}},
      {"privateTraining", {"", "Goalie Clinic", "Edges and Turns"}},
      {"privateSession", {"", "School Group", "Scout Troop", "Company Outing"}},
      {"rental", {"", "", "Private Group"}},
      {"specialEvent", {"Club Exhibition", "Snowflake Invitational", "Basic Skills Competition"}},
      {"broomball", {"", "Campus League", "Open Play"}},
  };
  return kSubtitles;
}

const std::map<std::string, std::vector<const char*>>& notes() {
  static const std::map<std::string, std::vector<const char*>> kNotes = {
      {"freestyle", {"", "", "", "Limited to 22 skaters. Buy on at the front desk."}},
      {"publicSession",
       {"", "Admission $9, skate rental $4.", "Skating aids are available for small children."}},
      {"skatingSchool", {"", "", "Please arrive 20 minutes early for skates.", "Gloves are required."}},
      {"hockeyStickTime", {"", "Full equipment required. No games, no coaching."}},
      {"hockeyPickup", {"", "Full equipment required. $15, goalies skate free."}},
      {"specialEvent", {"Spectators welcome, no admission charge.", "Doors open 30 minutes before."}},
      {"broomball", {"Helmets and brooms are at the desk. Wear rubber-soled shoes.", ""}},
      {"rental", {"", "Closed to the public."}},
  };
  return kNotes;
}

std::string anyOf(Random& random, const std::map<std::string, std::vector<const char*>>& table,
                  const std::string& kind) {
  const auto found = table.find(kind);
  return found == table.end() ? "" : random.pick(std::span<const char* const>(found->second));
}

std::string team(Random& random) {
  return random.pick(std::span<const char* const>(kTeams));
}

std::string gameText(Random& random, int time) {
  constexpr int kAdultsFrom = 20 * 60 + 30;
  if (time >= kAdultsFrom) return random.pick(std::span<const char* const>(kLeagues));
  const int home = random.below(static_cast<int>(kTeams.size()));
  const int guests =
      (home + 1 + random.below(static_cast<int>(kTeams.size()) - 1)) % static_cast<int>(kTeams.size());
  return fmt::format("{} vs {} {}", kTeams.at(static_cast<std::size_t>(home)),
                     kTeams.at(static_cast<std::size_t>(guests)),
                     random.pick(std::span<const char* const>(kAges)));
}

}  // namespace

SessionText sessionText(Random& random, const std::string& kind, int time) {
  SessionText text;
  if (kind == "hockeyGame") {
    text.subtitle = gameText(random, time);
  } else if (kind == "hockeyPractice") {
    text.subtitle = team(random) + " " + random.pick(std::span<const char* const>(kAges));
  } else {
    text.subtitle = anyOf(random, subtitles(), kind);
  }
  constexpr int kEvening = 18 * 60 + 30;
  if (kind == "publicSession" && time >= kEvening) {
    text.subtitle = "Evening Skate";
    text.note = "Music and dimmed lights. Admission $10, skate rental $4.";
    return text;
  }
  text.note = anyOf(random, notes(), kind);
  return text;
}

}  // namespace tarvel::demo
