#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace tarvel::demo {

/// What a sheet of ice, or a room, is mostly used for; it chooses the plan of its weeks.
enum class VenueUse { figure, hockey, family, dance, party, meeting, classes, locker };

struct DemoVenue {
  std::int64_t venueID = 0;
  std::string kind;  ///< as the descriptions have it: "iceSheet"
  std::string name;
  std::string note;
  VenueUse use = VenueUse::family;
};

/// The drawn mark of a rink.
enum class LogoMark { tree, lantern, mountain, wave, sun, crown, birch, anchor, star, ribbon, leaf, gem };

enum class Pictures { none, albums };
enum class LateNights { none, weekends };

/// A rink that the demo invents: nobody's name, address or number.
struct DemoRink {
  std::int64_t rinkID = 0;
  std::string folder;  ///< "cedar-hollow"
  std::string name;
  std::string street;
  std::string city;
  std::string state;
  std::string zip;
  std::string phone;
  double latitude = 0.0;
  double longitude = 0.0;
  std::string timeZone;
  std::string website;
  int opens = 360;  ///< minutes after midnight, on weekdays
  int closes = 1380;
  LateNights lateNights = LateNights::none;
  Pictures pictures = Pictures::none;
  LogoMark mark = LogoMark::tree;
  int hue = 210;  ///< of the logo and pictures, degrees
  std::vector<DemoVenue> venues;
};

/// The rinks of the catalogue at start, ascending by id.
std::vector<DemoRink> demoRinks();
/// Further ones, that can be added while the demo runs.
std::vector<DemoRink> reserveRinks();

}  // namespace tarvel::demo
