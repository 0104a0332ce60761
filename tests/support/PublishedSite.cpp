#include "support/PublishedSite.h"

#include <fmt/format.h>

#include "foundation/DataEncoder.h"

namespace tarvel {

namespace {

void put(DataEncoder& encoder, const FileRecord& file) {
  encoder.putString(file.name);
  encoder.putDouble(file.date.seconds);
}

void putLogo(DataEncoder& encoder, std::optional<Instant> date, std::int64_t size) {
  encoder.putBool(date.has_value());
  if (!date) return;
  encoder.putDouble(date->seconds);
  encoder.putInt(size);
}

void put(DataEncoder& encoder, const RinkRecord& rink) {
  encoder.putInt(rink.rinkID);
  for (const std::string* text : {&rink.name, &rink.street, &rink.city, &rink.state, &rink.zip}) {
    encoder.putString(*text);
  }
  encoder.putUInt64(rink.phone);
  encoder.putDouble(rink.latitude);
  encoder.putDouble(rink.longitude);
  for (const std::string* text : {&rink.timeZone, &rink.websiteUrl, &rink.serverUrl, &rink.dataPath}) {
    encoder.putString(*text);
  }
  putLogo(encoder, rink.logoFileDate, rink.logoFileSize);
  putLogo(encoder, rink.darkLogoFileDate, rink.darkLogoFileSize);
}

void putCount(DataEncoder& encoder, std::size_t count) {
  encoder.putInt(static_cast<std::int64_t>(count));
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
  DataEncoder encoder;
  put(encoder, {"main.b1", mainDate.listed()});
  return encoder.data();
}

Bytes PublishedRink::main() const {
  DataEncoder encoder;
  encoder.putDouble(mainDate.actual.seconds);
  encoder.putUInt32(firstWeek);
  encoder.putUInt32(lastWeek);
  putCount(encoder, venues.size());
  for (const PublishedVenue& venue : venues) {
    encoder.putInt(venue.record.venueID);
    encoder.putInt8(static_cast<std::int8_t>(venue.record.venueKind));
    encoder.putString(venue.record.name);
    encoder.putString(venue.record.note);
    encoder.putInt(venue.record.displayOrder);
  }
  putCount(encoder, venues.size() + otherFiles.size());
  for (const PublishedVenue& venue : venues)
    put(encoder, {venue.schedulesName(), venue.schedulesDate.listed()});
  for (const FileRecord& file : otherFiles) put(encoder, file);
  encoder.putString(photosFolder);
  encoder.putString("not read");
  encoder.putInt(41);
  encoder.putString("Cover");
  encoder.putString("The hall");
  encoder.putInt(1);
  encoder.putDouble(640.0);
  encoder.putDouble(480.0);
  encoder.putInt(12'345);
  encoder.putDouble(794'000'000.5);
  return encoder.data();
}

Bytes PublishedRink::schedules(const PublishedVenue& venue) {
  DataEncoder encoder;
  encoder.putDouble(venue.schedulesDate.actual.seconds);
  putCount(encoder, venue.weeks.size());
  for (const PublishedWeek& week : venue.weeks) put(encoder, {venue.weekName(week), week.date.listed()});
  return encoder.data();
}

Bytes PublishedRink::week(const PublishedWeek& week) {
  DataEncoder encoder;
  encoder.putDouble(week.date.actual.seconds);
  putCount(encoder, week.items.size());
  for (const ScheduleItemRecord& item : week.items) {
    encoder.putInt8(static_cast<std::int8_t>(item.kind));
    encoder.putInt8(static_cast<std::int8_t>(item.day));
    encoder.putInt16(static_cast<std::int16_t>(item.time));
    encoder.putInt16(static_cast<std::int16_t>(item.duration));
    encoder.putString(item.subtitle);
    encoder.putString(item.note);
  }
  return encoder.data();
}

Bytes PublishedSite::root() const {
  DataEncoder encoder;
  encoder.putInt64(6LL << 48);
  encoder.putInt64(minimumVersion);
  encoder.putInt64(0);
  encoder.putInt64(0);
  encoder.putString(applicationWebsiteURL);
  encoder.putInt(3);
  put(encoder, {"defs.b1", defsDate.listed()});
  put(encoder, {"unknown.b1", {1.0}});
  put(encoder, {"rinks.b1", rinksDate.listed()});
  return encoder.data();
}

Bytes PublishedSite::defs() const {
  DataEncoder encoder;
  encoder.putDouble(defsDate.actual.seconds);
  putCount(encoder, sessions.size());
  for (const PublishedSession& session : sessions) {
    encoder.putDouble(session.color.red);
    encoder.putDouble(session.color.green);
    encoder.putDouble(session.color.blue);
    encoder.putDouble(session.color.alpha);
    encoder.putString(session.name);
  }
  return encoder.data();
}

Bytes PublishedSite::rinkList() const {
  DataEncoder encoder;
  encoder.putDouble(rinksDate.actual.seconds);
  putCount(encoder, rinks.size());
  for (const PublishedRink& rink : rinks) put(encoder, rink.record);
  return encoder.data();
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

void PublishedSite::serveOn(ScriptedHttpClient& http, const std::string& prefix) const {
  http.handlePrefix(prefix, [this](const ScriptedHttpClient::Request& request) {
    const auto all = files();
    const auto found = all.find(request.url);
    return found == all.end() ? HttpResponse{404, {}} : HttpResponse{200, found->second};
  });
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
    for (int i = 0; i < 3; ++i) {
      week.items.push_back({kinds[i], i, 600 + 60 * i, 45, i == 2 ? "Family" : "", "note"});
    }
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
