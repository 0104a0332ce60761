#include "simulation/SiteContent.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "foundation/PackedVersion.h"
#include "model/SessionKind.h"
#include "platform/TimeZone.h"
#include "simulation/StoredFiles.h"
#include "simulation/ports/FakeImageDecoder.h"

/// The content and how it changes; the files that follow from it are made in SitePublication.cpp.
namespace tarvel::sim {

namespace {

constexpr std::size_t kMostRinks = 9, kLeastRinks = 2;
constexpr std::size_t kMostVenues = 4;
constexpr std::size_t kMostPhotos = 5;
constexpr std::size_t kMostNotices = 6;
constexpr int kWeeksAhead = 3;
constexpr const char* kZones[] = {"America/Denver", "Europe/Oslo", "America/New_York", "Australia/Sydney",
                                  "America/St_Johns"};

template <class List>
void eraseAt(List& list, std::size_t index) {
  list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
}

PackedDate sundayOf(Instant now) {
  return startOfWeek(packedDate(TimeZone::utc().local(now)));
}

}  // namespace

SiteContent::SiteContent(SeededRandom random, Instant now) : random_(random) {
  catalogue_.currentVersion = packedVersion(6, 1, 0);
  catalogue_.minimumVersion = packedVersion(6, 0, 0);
  catalogue_.applicationWebsiteURL = "https://tarvel.test";
  for (int kind = 0; kind < kSessionKindCount; ++kind)
    catalogue_.sessions.push_back({text("session"), 0.25, 0.5, 0.75, 1.0});
  const std::size_t count = kLeastRinks + 1 + random_.below(4);
  for (std::size_t i = 0; i < count; ++i) catalogue_.rinks.push_back(newRink(now));
}

std::string SiteContent::text(std::string_view what) {
  return fmt::format("{} {}", what, ++lastText_);
}

publish::Rink SiteContent::newRink(Instant now) {
  publish::Rink rink;
  rink.rinkID = ++lastID_;
  rink.name = text("Rink");
  rink.city = text("City");
  rink.timeZone = kZones[random_.below(std::size(kZones))];
  rink.serverUrl = rinkServer(rink.rinkID, 0);
  rink.dataPath = "d";
  rink.photosFolder = "p";
  const std::size_t venues = 1 + random_.below(2);
  for (std::size_t i = 0; i < venues; ++i) addVenue(rink, now);
  for (std::size_t i = random_.below(3); i > 0; --i) addPhoto(rink);
  if (random_.chance(0.5)) shiftNotices(rink, now);
  if (random_.chance(0.7)) rink.logo = publish::ImageFile{"", static_cast<std::int64_t>(++lastText_), 40, 20};
  keepWeeks(rink, now);
  return rink;
}

void SiteContent::addVenue(publish::Rink& rink, Instant now) {
  publish::Venue venue;
  venue.venueID = ++lastID_;
  venue.kind = static_cast<std::int8_t>(random_.below(8));
  venue.name = text("Venue");
  venue.displayOrder = static_cast<std::int64_t>(random_.below(9));
  rink.venues.push_back(venue);
  keepWeeks(rink, now);
}

void SiteContent::keepWeeks(publish::Rink& rink, Instant now) {
  constexpr int kDaysPerWeek = 7;
  const PackedDate thisWeek = sundayOf(now);
  rink.firstWeek = subtractDays(thisWeek, kDaysPerWeek);
  rink.lastWeek = addDays(thisWeek, kWeeksAhead * kDaysPerWeek);
  std::vector<publish::Week> weeks;
  for (const publish::Venue& venue : rink.venues) {
    for (PackedDate week = rink.firstWeek; week <= rink.lastWeek; week = addDays(week, kDaysPerWeek)) {
      const auto old = std::find_if(rink.weeks.begin(), rink.weeks.end(), [&](const publish::Week& w) {
        return w.venueID == venue.venueID && w.weekOf == week;
      });
      weeks.push_back(old == rink.weeks.end() ? publish::Week{venue.venueID, week, {}} : *old);
      if (old == rink.weeks.end()) fillWeek(weeks.back());
    }
  }
  rink.weeks = std::move(weeks);
}

void SiteContent::fillWeek(publish::Week& week) {
  week.sessions.clear();
  for (std::size_t i = random_.below(12); i > 0; --i) {
    week.sessions.push_back({static_cast<std::int8_t>(random_.below(kSessionKindCount)),
                             static_cast<std::int8_t>(i % 7), static_cast<std::int16_t>(300 + 90 * i), 75,
                             random_.chance(0.3) ? text("group") : "", ""});
  }
}

void SiteContent::addPhoto(publish::Rink& rink) {
  publish::Photo photo{++lastID_, text("Photo"), "", {}};
  for (int version = 1; version <= 2; ++version) {
    photo.versions.push_back({"", static_cast<std::int64_t>(++lastText_), 80 * version, 60 * version});
  }
  rink.photos.push_back(std::move(photo));
}

void SiteContent::shiftNotices(publish::Rink& rink, Instant now) {
  if (rink.notices.size() >= kMostNotices || (!rink.notices.empty() && random_.chance(0.4))) {
    eraseAt(rink.notices, random_.below(rink.notices.size()));
  } else {
    rink.notices.insert(rink.notices.begin(),
                        {++lastID_, packedDate(TimeZone::utc().local(now)), text("Notice"), text("Detail")});
  }
}

void SiteContent::changeRink(publish::Rink& rink, Instant now) {
  switch (random_.below(12)) {
    case 0:
      rink.name = text("Rink");
      break;
    case 1:
      rink.timeZone = kZones[random_.below(std::size(kZones))];
      break;
    case 2:
      if (rink.venues.size() < kMostVenues) addVenue(rink, now);
      break;
    case 3:
      if (rink.venues.size() > 1) eraseAt(rink.venues, random_.below(rink.venues.size()));
      break;
    case 4:
      if (rink.photos.size() < kMostPhotos) addPhoto(rink);
      break;
    case 5:
      if (!rink.photos.empty()) eraseAt(rink.photos, random_.below(rink.photos.size()));
      break;
    case 6:
      rink.logo = publish::ImageFile{"", static_cast<std::int64_t>(++lastText_), 40, 20};
      break;
    case 7:
      rink.venues[random_.below(rink.venues.size())].name = text("Venue");
      break;
    case 8:
    case 9:
      shiftNotices(rink, now);
      break;
    default:
      if (!rink.weeks.empty()) fillWeek(rink.weeks[random_.below(rink.weeks.size())]);
  }
  rink.coverPhotoID = rink.photos.empty() ? 0 : rink.photos.front().photoID;
}

void SiteContent::changeCatalogue(Instant now) {
  auto& rinks = catalogue_.rinks;
  switch (random_.below(4)) {
    case 0:
      if (rinks.size() < kMostRinks) rinks.push_back(newRink(now));
      break;
    case 1:
      if (rinks.size() > kLeastRinks) eraseAt(rinks, random_.below(rinks.size()));
      break;
    case 2:
      catalogue_.sessions[random_.below(catalogue_.sessions.size())].name = text("session");
      break;
    default: {
      // The rink moves to another server.
      publish::Rink& rink = rinks[random_.below(rinks.size())];
      rink.serverUrl = rinkServer(rink.rinkID, static_cast<int>(random_.below(3)));
    }
  }
}

Changes SiteContent::evolve(Instant now) {
  for (publish::Rink& rink : catalogue_.rinks) keepWeeks(rink, now);
  if (random_.chance(0.07)) {
    changeCatalogue(now);
  } else {
    publish::Rink& rink = catalogue_.rinks[random_.below(catalogue_.rinks.size())];
    for (std::size_t edits = 1 + random_.below(3); edits > 0; --edits) changeRink(rink, now);
    keepWeeks(rink, now);
  }
  return publishAll(now);
}

Changes SiteContent::requireUpdate(bool required, Instant now) {
  catalogue_.minimumVersion = required ? packedVersion(7, 0, 0) : packedVersion(6, 0, 0);
  return publishAll(now);
}

Changes SiteContent::touch(const std::set<std::string>& keys, Instant now) {
  touched_ = keys;
  Changes changes = publishAll(now);
  touched_.clear();
  return changes;
}

}  // namespace tarvel::sim
