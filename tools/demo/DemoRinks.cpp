#include "DemoRinks.h"

namespace tarvel::demo {
namespace {

using enum VenueUse;

DemoVenue sheet(std::int64_t id, std::string name, VenueUse use, std::string note = "") {
  return {id, "iceSheet", std::move(name), std::move(note), use};
}

DemoVenue outdoor(std::int64_t id, std::string name) {
  return {id, "artificialIce", std::move(name), "Outdoors. Closed in heavy rain and strong wind.", family};
}

DemoVenue lockers(std::int64_t id, std::string name) {
  return {id, "lockerRoom", std::move(name), "", locker};
}
DemoVenue danceRoom(std::int64_t id, std::string name) {
  return {id, "danceRoom", std::move(name), "Sprung floor. Please no blade guards.", dance};
}
DemoVenue partyRoom(std::int64_t id, std::string name) {
  return {id, "partyRoom", std::move(name), "", party};
}
DemoVenue meetingRoom(std::int64_t id, std::string name) {
  return {id, "meetingRoom", std::move(name), "", meeting};
}
DemoVenue classRoom(std::int64_t id, std::string name) {
  return {id, "classRoom", std::move(name), "", classes};
}

DemoRink cedarHollow() {
  return {11,
          "cedar-hollow",
          "Cedar Hollow Ice Center",
          "410 Millrace Lane",
          "Cedar Hollow",
          "MD",
          "21304",
          "(410) 555-0142",
          39.412,
          -76.981,
          "America/New_York",
          "https://cedarhollow.example.org/",
          330,
          1395,
          LateNights::weekends,
          Pictures::albums,
          LogoMark::tree,
          158,
          {sheet(1, "North Rink", figure), sheet(2, "South Rink", hockey), danceRoom(3, "Studio"),
           partyRoom(4, "Party Room"), lockers(5, "Locker Room 1")}};
}

DemoRink lanternLake() {
  return {14,
          "lantern-lake",
          "Lantern Lake Arena",
          "2200 Causeway Road",
          "Lantern Lake",
          "MN",
          "55214",
          "(612) 555-0117",
          45.083,
          -93.722,
          "America/Chicago",
          "https://lanternlake.example.com/",
          345,
          1410,
          LateNights::weekends,
          Pictures::albums,
          LogoMark::lantern,
          24,
          {sheet(1, "Rink A", hockey), sheet(2, "Rink B", hockey),
           sheet(3, "Studio Rink", figure, "Small sheet."), meetingRoom(4, "Lakeview Room"),
           lockers(5, "Locker Room A"), lockers(6, "Locker Room B")}};
}

DemoRink juniperRidge() {
  return {17,
          "juniper-ridge",
          "Juniper Ridge Ice House",
          "75 Quarry Bend",
          "Juniper Ridge",
          "CO",
          "81803",
          "(303) 555-0156",
          39.655,
          -105.467,
          "America/Denver",
          "https://juniperridge.example.org/",
          360,
          1365,
          LateNights::none,
          Pictures::albums,
          LogoMark::mountain,
          214,
          {sheet(1, "", family), classRoom(2, "")}};
}

DemoRink pelicanPoint() {
  return {23,
          "pelican-point",
          "Pelican Point Skating Center",
          "1881 Breakwater Drive",
          "Pelican Point",
          "CA",
          "90914",
          "(714) 555-0163",
          33.671,
          -117.902,
          "America/Los_Angeles",
          "https://pelicanpoint.example.com/",
          330,
          1410,
          LateNights::weekends,
          Pictures::albums,
          LogoMark::wave,
          192,
          {sheet(1, "Pacific Rink", figure), sheet(2, "Harbor Rink", family), partyRoom(3, "Tide Pool Room"),
           partyRoom(4, "Lighthouse Room"), danceRoom(5, "Dance Room")}};
}

DemoRink saguaro() {
  return {28,
          "saguaro",
          "Saguaro Ice Pavilion",
          "9300 East Ironwood Parkway",
          "Mesa Verde Springs",
          "AZ",
          "85812",
          "(480) 555-0128",
          33.582,
          -111.781,
          "America/Phoenix",
          "https://saguaroice.example.net/",
          330,
          1425,
          LateNights::weekends,
          Pictures::none,
          LogoMark::sun,
          18,
          {sheet(1, "East Sheet", hockey), sheet(2, "West Sheet", family), partyRoom(3, "Party Room")}};
}

DemoRink fenwickStreet() {
  return {31,
          "fenwick-street",
          "Fenwick Street Rink",
          "12 Fenwick Street",
          "London",
          "",
          "ZZ9 4QX",
          "555-0177",
          51.531,
          -0.063,
          "Europe/London",
          "https://fenwickstreet.example.org/",
          375,
          1380,
          LateNights::none,
          Pictures::albums,
          LogoMark::crown,
          348,
          {sheet(1, "Main Ice", family), partyRoom(2, "Balcony"), meetingRoom(3, "Committee Room")}};
}

DemoRink birchmere() {
  return {36,
          "birchmere",
          "Birchmere Quad Arena",
          "600 Tannery Way",
          "Birchmere",
          "NY",
          "09914",
          "(518) 555-0104",
          43.021,
          -73.812,
          "America/New_York",
          "https://birchmere.example.com/",
          330,
          1425,
          LateNights::weekends,
          Pictures::albums,
          LogoMark::birch,
          268,
          {sheet(1, "Rink 1", hockey, "Seats 1,200."), sheet(2, "Rink 2", hockey), sheet(3, "Rink 3", figure),
           sheet(4, "Rink 4", family), danceRoom(5, "Dance Studio"), classRoom(6, "Classroom 1"),
           meetingRoom(7, "Board Room"), partyRoom(8, "Birch Room"), lockers(9, "Home Locker Room")}};
}

DemoRink harborlight() {
  return {42,
          "harborlight",
          "Harborlight Ice Complex",
          "38 Signal Wharf",
          "Port Marrow",
          "NS",
          "B0Z 9X9",
          "(902) 555-0139",
          44.702,
          -63.541,
          "America/Halifax",
          "https://harborlight.example.org/",
          360,
          1380,
          LateNights::none,
          Pictures::none,
          LogoMark::anchor,
          226,
          {sheet(1, "Inner Rink", hockey), outdoor(2, "Harbor Oval")}};
}

DemoRink glacierBend() {
  return {47,
          "glacier-bend",
          "Glacier Bend Recreation",
          "5 Spruce Landing",
          "Glacier Bend",
          "AK",
          "99909",
          "(907) 555-0181",
          61.221,
          -149.702,
          "America/Anchorage",
          "",
          360,
          1350,
          LateNights::none,
          Pictures::none,
          LogoMark::star,
          178,
          {sheet(1, "", hockey), meetingRoom(2, "Community Room")}};
}

DemoRink fjellvik() {
  return {53,
          "fjellvik",
          "Fjellvik Ishall",
          "Nordlysveien 7",
          "Fjellvik",
          "",
          "0000",
          "555-0190",
          59.951,
          10.783,
          "Europe/Oslo",
          "https://fjellvik.example.net/",
          390,
          1335,
          LateNights::none,
          Pictures::albums,
          LogoMark::ribbon,
          142,
          {sheet(1, "Hall A", figure), sheet(2, "Hall B", hockey), classRoom(3, "Møterom"),
           danceRoom(4, "Dansesal")}};
}

DemoRink willowCreek() {
  return {58,
          "willow-creek",
          "Willow Creek Community Ice",
          "1400 Prairie Avenue",
          "Willow Creek",
          "IL",
          "62112",
          "(217) 555-0173",
          40.141,
          -88.312,
          "America/Chicago",
          "https://willowcreek.example.org/",
          360,
          1380,
          LateNights::none,
          Pictures::none,
          LogoMark::leaf,
          96,
          {sheet(1, "Community Rink", family), partyRoom(2, "Party Room")}};
}

DemoRink marbleQuarry() {
  return {61,
          "marble-quarry",
          "Marble Quarry Rink",
          "22 Stonecutter Road",
          "Marble Quarry",
          "UT",
          "84801",
          "(801) 555-0110",
          40.662,
          -111.521,
          "America/Denver",
          "https://marblequarry.example.com/",
          360,
          1380,
          LateNights::weekends,
          Pictures::none,
          LogoMark::gem,
          302,
          {sheet(1, "Upper Rink", figure), sheet(2, "Lower Rink", hockey)}};
}

}  // namespace

std::vector<DemoRink> demoRinks() {
  return {cedarHollow(),   lanternLake(), juniperRidge(), pelicanPoint(), saguaro(),
          fenwickStreet(), birchmere(),   harborlight(),  glacierBend(),  fjellvik()};
}

std::vector<DemoRink> reserveRinks() {
  return {willowCreek(), marbleQuarry()};
}

}  // namespace tarvel::demo
