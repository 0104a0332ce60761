#include "support/PublishedSite.h"

#include <fmt/format.h>

#include "support/Encoded.h"

namespace tarvel {

namespace {

Bytes fileRow(const FileRecord& file) {
  return encoded(file.name, file.date);
}

Bytes logo(std::optional<Instant> date, std::int64_t size) {
  return date ? encoded(true, *date, size) : encoded(false);
}

Bytes row(const RinkRecord& rink) {
  return encoded(rink.rinkID, rink.name, rink.street, rink.city, rink.state, rink.zip, rink.phone,
                 rink.latitude, rink.longitude, rink.timeZone, rink.websiteUrl, rink.serverUrl, rink.dataPath,
                 logo(rink.logoFileDate, rink.logoFileSize),
                 logo(rink.darkLogoFileDate, rink.darkLogoFileSize));
}

Bytes venueRow(const PublishedVenue& venue) {
  const VenueRecord& record = venue.record;
  return encoded(record.venueID, static_cast<std::int8_t>(record.venueKind), record.name, record.note,
                 record.displayOrder);
}

}  // namespace

std::string PublishedVenue::schedulesName() const {
  return fmt::format("venue-{}_schedules.b1", record.venueID);
}

std::string PublishedVenue::weekName(const PublishedWeek& week) const {
  return fmt::format("venue-{}_week-{}-{:02}-{:02}.b1", record.venueID, yearOf(week.weekOf),
                     monthOf(week.weekOf), dayOf(week.weekOf));
}

Bytes PublishedRink::master() const {
  return fileRow({"main.b1", mainDate.listed()});
}

Bytes PublishedRink::main() const {
  std::vector<FileRecord> listed;
  listed.reserve(venues.size() + otherFiles.size());
  for (const PublishedVenue& venue : venues)
    listed.push_back({venue.schedulesName(), venue.schedulesDate.listed()});
  listed.insert(listed.end(), otherFiles.begin(), otherFiles.end());
  return encoded(mainDate.actual, firstWeek, lastWeek, encodedList(venues, venueRow),
                 encodedList(listed, fileRow), photosFolder, "not read", 41, "Cover", "The hall", 1, 640.0,
                 480.0, 12'345, 794'000'000.5);
}

Bytes PublishedRink::schedules(const PublishedVenue& venue) {
  return encoded(venue.schedulesDate.actual, encodedList(venue.weeks, [&](const PublishedWeek& week) {
                   return fileRow({venue.weekName(week), week.date.listed()});
                 }));
}

Bytes PublishedRink::week(const PublishedWeek& week) {
  return encoded(week.date.actual, encodedList(week.items, [](const ScheduleItemRecord& item) {
                   return encoded(static_cast<std::int8_t>(item.kind), static_cast<std::int8_t>(item.day),
                                  static_cast<std::int16_t>(item.time),
                                  static_cast<std::int16_t>(item.duration), item.subtitle, item.note);
                 }));
}

Bytes PublishedSite::root() const {
  return encoded(6LL << 48, minimumVersion, 0, 0, applicationWebsiteURL, 3,
                 fileRow({"defs.b1", defsDate.listed()}), fileRow({"unknown.b1", {1.0}}),
                 fileRow({"rinks.b1", rinksDate.listed()}));
}

Bytes PublishedSite::defs() const {
  return encoded(defsDate.actual, encodedList(sessions, [](const PublishedSession& session) {
                   const Color& color = session.color;
                   return encoded(color.red, color.green, color.blue, color.alpha, session.name);
                 }));
}

Bytes PublishedSite::rinkList() const {
  return encoded(rinksDate.actual,
                 encodedList(rinks, [](const PublishedRink& rink) { return row(rink.record); }));
}

std::map<std::string, Bytes> PublishedSite::files() const {
  std::map<std::string, Bytes> files;
  files[server + "/root.b1"] = root();
  files[server + "/defs.b1"] = defs();
  files[server + "/rinks.b1"] = rinkList();
  for (const auto& [name, logo] : logos) files[server + "/logos/" + name] = logo;
  for (const PublishedRink& rink : rinks) {
    files[rink.url("master.b1")] = rink.master();
    files[rink.url("main.b1")] = rink.main();
    for (const PublishedVenue& venue : rink.venues) {
      files[rink.url(venue.schedulesName())] = PublishedRink::schedules(venue);
      for (const PublishedWeek& week : venue.weeks)
        files[rink.url(venue.weekName(week))] = PublishedRink::week(week);
    }
  }
  return files;
}

HttpResponse PublishedSite::answer(const std::string& url) const {
  const auto all = files();
  const auto found = all.find(url);
  return found == all.end() ? HttpResponse{404, {}} : HttpResponse{200, found->second};
}

void PublishedSite::serveOn(ScriptedHttpClient& http, const std::string& prefix) const {
  http.handlePrefix(prefix,
                    [this](const ScriptedHttpClient::Request& request) { return answer(request.url); });
}

namespace {

PublishedVenue sampleVenue(std::int64_t id, const std::string& name, double date) {
  PublishedVenue venue;
  venue.record = {id, VenueKind::iceSheet, name, "", id};
  venue.schedulesDate.actual = {date + 0.125};
  const SessionKind kinds[] = {SessionKind::freestyle, SessionKind::resurface, SessionKind::publicSession};
  for (const int day : {1, 8, 15, 22}) {
    PublishedWeek week;
    week.weekOf = packedDate(2026, 3, day);
    week.date.actual = {date + day + 0.0625};
    for (int i = 0; i < 3; ++i)
      week.items.push_back({kinds[i], i, 600 + 60 * i, 45, i == 2 ? "Family" : "", "note"});
    venue.weeks.push_back(std::move(week));
  }
  return venue;
}

PublishedRink sampleRink(std::int64_t id, const std::string& name, const std::string& zone, double date) {
  PublishedRink rink;
  rink.record.rinkID = id;
  rink.record.name = name;
  rink.record.city = "Springfield";
  rink.record.timeZone = zone;
  rink.record.serverUrl = "http://rinks.test";
  rink.record.dataPath = fmt::format("r{}", id);
  rink.mainDate.actual = {date + 0.75};
  rink.firstWeek = packedDate(2026, 3, 1);
  rink.lastWeek = packedDate(2026, 3, 22);
  rink.venues.push_back(sampleVenue(1, "Main", date + 100));
  return rink;
}

}  // namespace

PublishedSite PublishedSite::sample() {
  PublishedSite site;
  site.defsDate.actual = {790'000'000.5};
  site.rinksDate.actual = {791'000'000.25};
  site.sessions = {{"Ice Making", white(1.0)}, {"Open Skate", {0.1, 0.2, 0.3, 1.0}}};
  site.rinks = {sampleRink(7, "Arctic", "America/Denver", 792'000'000.0),
                sampleRink(12, "Harbor", "Europe/Oslo", 793'000'000.0)};
  site.rinks[0].venues.push_back(sampleVenue(3, "Studio", 792'000'500.0));
  site.logos["7.png"] = {'I', 'M', 'G', ' ', '8', ' ', '4'};
  site.rinks[0].record.logoFileDate = Instant{789'000'000.375};
  site.rinks[0].record.logoFileSize = 7;
  return site;
}

}  // namespace tarvel
