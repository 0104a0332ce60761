#include "WeeksReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "FieldParsers.h"
#include "InputNode.h"
#include "Kinds.h"

namespace tarvel::publish {
namespace {

constexpr std::int64_t kMinutesPerDay = 1440;
constexpr std::int64_t kLatestStart = 2 * kMinutesPerDay - 1;
constexpr std::int64_t kLongest = INT16_MAX;

/// Where a session of a venue was described, and its minutes counted from one midnight for all weeks.
struct Placed {
  std::int64_t start;
  std::int64_t end;
  InputNode node;
};
using PlacedByVenue = std::map<std::int64_t, std::vector<Placed>>;

std::optional<std::int8_t> readDay(const InputNode& node) {
  constexpr std::string_view kForm = "a weekday such as \"Monday\", or a number from 0 for Sunday to 6";
  if (node.value().is_string()) {
    const auto day = node.parse(parseWeekday, kForm);
    return day ? std::optional(static_cast<std::int8_t>(*day)) : std::nullopt;
  }
  const auto day = node.integerValue(0, 6, kForm);
  return day ? std::optional(static_cast<std::int8_t>(*day)) : std::nullopt;
}

/// One day, or a list of them for a session that takes place on several.
std::vector<std::int8_t> readDays(InputNode& node) {
  std::vector<std::int8_t> days;
  const auto add = [&](const InputNode& each) {
    if (const auto day = readDay(each)) days.push_back(*day);
  };
  const auto given = node.member("day", Presence::required);
  if (given && given->value().is_array()) {
    for (const InputNode& each : node.list("day", Presence::required)) add(each);
    if (given->value().empty()) given->complain("is an empty list");
  } else if (given) {
    add(*given);
  }
  return days;
}

std::int16_t readTime(InputNode& node) {
  constexpr std::string_view kForm = "a time from \"0:00\" to \"47:59\", or its minutes after midnight";
  const auto given = node.member("time", Presence::required);
  if (!given) return 0;
  std::optional<std::int64_t> time;
  if (given->value().is_string()) {
    time = given->parse(parseTime, kForm);
  } else {
    time = given->integerValue(0, kLatestStart, kForm);
  }
  return static_cast<std::int16_t>(time.value_or(0));
}

class WeekFileReader {
 public:
  WeekFileReader(Rink& rink, PlacedByVenue& placed) : rink_(rink), placed_(placed) {}

  void read(InputNode root) {
    const auto weekOf = root.parsed("weekOf", Presence::required, parseSunday, "the date of a Sunday");
    for (InputNode node : root.list("schedules", Presence::required)) {
      const std::int64_t venueID = node.id("venueID");
      checkVenue(node, venueID, weekOf.value_or(kNoDate));
      Week week{venueID, weekOf.value_or(kNoDate), {}};
      for (const InputNode& session : node.list("sessions", Presence::required)) readSession(session, week);
      std::stable_sort(week.sessions.begin(), week.sessions.end(), [](const Session& a, const Session& b) {
        return std::tie(a.day, a.time) < std::tie(b.day, b.time);
      });
      node.noOtherKeys();
      rink_.weeks.push_back(std::move(week));
    }
    root.noOtherKeys();
  }

 private:
  void checkVenue(const InputNode& node, std::int64_t venueID, PackedDate weekOf) const {
    if (venueID == 0) return;
    const bool known = std::any_of(rink_.venues.begin(), rink_.venues.end(),
                                   [&](const Venue& venue) { return venue.venueID == venueID; });
    if (!known) node.complain("venueID", fmt::format("there is no venue {} in rink.json", venueID));
    const bool twice = std::any_of(rink_.weeks.begin(), rink_.weeks.end(), [&](const Week& week) {
      return week.venueID == venueID && week.weekOf == weekOf;
    });
    if (twice) node.complain(fmt::format("describes this week of venue {} a second time", venueID));
  }

  void readSession(InputNode node, Week& week) {
    Session session;
    session.kind =
        node.parsed("kind", Presence::required, sessionKind, "one of " + sessionKindList()).value_or(0);
    const auto days = readDays(node);
    session.time = readTime(node);
    session.duration = static_cast<std::int16_t>(node.integer("duration", 1, kLongest));
    session.subtitle = node.text("subtitle", Presence::optional);
    session.note = node.text("note", Presence::optional);
    node.noOtherKeys();
    for (const std::int8_t day : days) {
      session.day = day;
      week.sessions.push_back(session);
      if (week.weekOf == kNoDate) continue;
      const std::int64_t start = (dayNumber(week.weekOf) + day) * kMinutesPerDay + session.time;
      placed_[week.venueID].push_back({start, start + session.duration, node});
    }
  }

  Rink& rink_;
  PlacedByVenue& placed_;
};

void warnOfOverlaps(PlacedByVenue& placed) {
  for (auto& [venueID, sessions] : placed) {
    std::stable_sort(sessions.begin(), sessions.end(),
                     [](const Placed& a, const Placed& b) { return a.start < b.start; });
    const Placed* last = nullptr;  // of those before, the one that ends last
    for (const Placed& session : sessions) {
      if (last && session.start < last->end) {
        session.node.warn(fmt::format("begins before another session in venue {} has ended", venueID));
      }
      if (!last || session.end > last->end) last = &session;
    }
  }
}

}  // namespace

std::optional<PackedDate> parseSunday(std::string_view text) {
  const auto date = parseDate(text);
  return date && weekdayOf(*date) == 0 ? date : std::nullopt;
}

void readWeeks(const InputFolder& folder, Rink& rink) {
  const Path weeksFolder = join(folder.input, folder.nameOf("weeks"));
  if (!folder.files.info(weeksFolder)) return;
  const auto entries = listVisible(folder.files, weeksFolder);
  if (!entries) {
    folder.problems.errors.push_back(
        {folder.nameOf("weeks"), "", "can't be read: " + entries.error().description});
    return;
  }
  std::vector<InputDocument>
      documents;  // overlaps between files are told by their nodes, so all of them stay
  documents.reserve(entries->size());
  PlacedByVenue placed;
  for (const FolderEntry& entry : *entries) {
    if (entry.kind != FileKind::file || extensionOf(entry.name) != "json") continue;
    auto document = InputDocument::read(folder.files, folder.input, folder.nameOf("weeks/" + entry.name),
                                        folder.problems);
    if (!document) continue;
    documents.push_back(std::move(*document));
    WeekFileReader(rink, placed).read(documents.back().root(folder.problems));
  }
  warnOfOverlaps(placed);
  std::sort(rink.weeks.begin(), rink.weeks.end(), [](const Week& a, const Week& b) {
    return std::tie(a.venueID, a.weekOf) < std::tie(b.venueID, b.weekOf);
  });
}

}  // namespace tarvel::publish
