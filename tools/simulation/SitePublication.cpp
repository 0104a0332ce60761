#include <algorithm>
#include <cmath>

#include "simulation/SiteContent.h"
#include "simulation/ports/FakeImageDecoder.h"

/// The files of a `SiteContent`. A file whose body is as before keeps its date.
namespace tarvel::sim {

namespace {

std::string rinkKey(const publish::Rink& rink, const std::string& name) {
  return "rink-" + std::to_string(rink.rinkID) + "/" + name;
}

Bytes imageBytes(const publish::ImageFile& image) {
  return FakeImageDecoder::file(image.width, image.height, std::to_string(image.fileSize));
}

/// The image as the collection tells of it: so far `fileSize` was its label.
publish::ImageFile measured(publish::ImageFile image) {
  image.fileSize = static_cast<std::int64_t>(imageBytes(image).size());
  return image;
}

}  // namespace

Instant SiteContent::newDate(Instant now, std::optional<Instant> old) {
  // Some publishers keep whole seconds, most don't.
  const double fraction = random_.chance(0.1) ? 0.0 : random_.fraction();
  Instant date{std::floor(now.seconds) - 10.0 + fraction};
  if (old && date <= *old) date = *old + 1.0;
  return date;
}

Instant SiteContent::publishFile(const std::string& key, Bytes body, Instant now, Changes& changes) {
  present_.insert(key);
  const auto found = files_.find(key);
  if (found != files_.end() && found->second.body == body && !touched_.contains(key))
    return found->second.date;
  const auto old = found == files_.end() ? std::nullopt : std::optional(found->second.date);
  const Instant date = newDate(now, old);
  changes.push_back({key, std::make_shared<const Bytes>(publish::withDate(date, body))});
  files_[key] = {std::move(body), date};
  return date;
}

Instant SiteContent::publishImage(const std::string& key, const publish::ImageFile& image, Instant now,
                                  Changes& changes) {
  present_.insert(key);
  Bytes bytes = imageBytes(image);
  const auto found = files_.find(key);
  if (found != files_.end() && found->second.body == bytes) return found->second.date;
  const Instant date = newDate(now, found == files_.end() ? std::nullopt : std::optional(found->second.date));
  changes.push_back({key, std::make_shared<const Bytes>(bytes)});
  files_[key] = {std::move(bytes), date};
  return date;
}

void SiteContent::publishIndex(const std::string& key, Bytes content, Changes& changes) {
  present_.insert(key);
  File& file = files_[key];
  if (file.body == content) return;
  changes.push_back({key, std::make_shared<const Bytes>(content)});
  file.body = std::move(content);
}

std::vector<publish::PhotoRow> SiteContent::publishPhotos(const publish::Rink& rink, Instant now,
                                                          Changes& changes) {
  std::vector<publish::PhotoRow> rows;
  for (const publish::Photo& photo : rink.photos) {
    publish::PhotoRow row{&photo, {}};
    for (std::size_t v = 0; v < photo.versions.size(); ++v) {
      const std::string key = rinkKey(rink, "Photos/" + publish::photoName(photo.photoID, v + 1));
      row.dates.push_back(publishImage(key, photo.versions[v], now, changes));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

void SiteContent::publishRink(const publish::Rink& rink, Instant now, Changes& changes) {
  std::vector<publish::Promise> listed;
  for (const publish::Venue& venue : rink.venues) {
    std::vector<publish::Promise> weeks;
    for (const publish::Week& week : rink.weeks) {
      if (week.venueID != venue.venueID) continue;
      const std::string name = publish::weekName(venue.venueID, week.weekOf);
      weeks.push_back(
          {name, publishFile(rinkKey(rink, name), publish::weekBody(week.sessions), now, changes)});
    }
    const std::string name = publish::schedulesName(venue.venueID);
    listed.push_back({name, publishFile(rinkKey(rink, name), publish::schedulesBody(weeks), now, changes)});
  }
  listed.push_back({"notices.b1", publishFile(rinkKey(rink, "notices.b1"), publish::noticesBody(rink.notices),
                                              now, changes)});
  publish::Rink sized = rink;
  for (publish::Photo& photo : sized.photos) {
    for (publish::ImageFile& image : photo.versions) image = measured(image);
  }
  std::vector<publish::PhotoRow> photos = publishPhotos(rink, now, changes);
  for (std::size_t i = 0; i < photos.size(); ++i) photos[i].photo = &sized.photos[i];
  listed.push_back(
      {"photoCollection.b1", publishFile(rinkKey(rink, "photoCollection.b1"),
                                         publish::photoCollectionBody(photos, {}), now, changes)});
  const publish::PhotoRow* const cover = photos.empty() ? nullptr : &photos.front();
  const Instant mainDate =
      publishFile(rinkKey(rink, "main.b1"), publish::mainBody(rink, listed, cover), now, changes);
  publishIndex(rinkKey(rink, "master.b1"), publish::masterFile({"main.b1", mainDate}), changes);
}

Changes SiteContent::publishAll(Instant now) {
  present_.clear();
  Changes changes;
  std::vector<publish::Rink> rinks = catalogue_.rinks;
  std::vector<publish::RinkRow> rows;
  for (publish::Rink& rink : rinks) {
    publishRink(rink, now, changes);
    publish::RinkRow row{&rink, {}, {}};
    if (rink.logo) {
      row.logoDate = publishImage("logos/" + publish::logoName(rink.rinkID), *rink.logo, now, changes);
      rink.logo = measured(*rink.logo);
    }
    rows.push_back(row);
  }
  const Instant defsDate = publishFile("defs.b1", publish::defsBody(catalogue_.sessions), now, changes);
  const Instant rinksDate = publishFile("rinks.b1", publish::rinksBody(rows), now, changes);
  const std::vector<publish::Promise> listed = {{"defs.b1", defsDate}, {"rinks.b1", rinksDate}};
  publishIndex("root.b1", publish::rootFile(catalogue_, listed), changes);
  for (auto file = files_.begin(); file != files_.end();) {
    if (present_.contains(file->first)) {
      ++file;
    } else {
      changes.push_back({file->first, nullptr});
      file = files_.erase(file);
    }
  }
  return changes;
}

}  // namespace tarvel::sim
