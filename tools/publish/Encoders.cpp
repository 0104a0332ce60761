#include "Encoders.h"

#include <fmt/format.h>

#include "foundation/DataDecoder.h"
#include "foundation/DataEncoder.h"

namespace tarvel::publish {
namespace {

void putCount(DataEncoder& out, std::size_t count) {
  out.putInt(static_cast<std::int64_t>(count));
}

void putPromise(DataEncoder& out, const Promise& promise) {
  out.putString(promise.name);
  out.putDouble(promise.date.seconds);
}

void putRelease(DataEncoder& out, const Release& release) {
  out.putUInt32(release.date);
  out.putInt64(release.appVersion);
  out.putInt64(release.osMinimumVersion);
  out.putString(release.url);
}

void putLogo(DataEncoder& out, const std::optional<ImageFile>& logo, std::optional<Instant> date) {
  out.putBool(logo && date);
  if (!logo || !date) return;
  out.putDouble(date->seconds);
  out.putInt(logo->fileSize);
}

void putVersions(DataEncoder& out, const PhotoRow& row) {
  const auto& versions = row.photo->versions;
  putCount(out, versions.size());
  for (std::size_t i = 0; i < versions.size(); ++i) {
    out.putDouble(versions[i].width);
    out.putDouble(versions[i].height);
    out.putInt(versions[i].fileSize);
    out.putDouble(row.dates.at(i).seconds);
  }
}

}  // namespace

Bytes rootFile(const Catalogue& catalogue, std::span<const Promise> files) {
  DataEncoder out;
  out.putInt64(catalogue.currentVersion);
  out.putInt64(catalogue.minimumVersion);
  out.putInt64(0);  // two fields that readers pass over
  out.putInt64(0);
  out.putString(catalogue.applicationWebsiteURL);
  putCount(out, files.size());
  for (const Promise& file : files) putPromise(out, file);
  if (!catalogue.releases) return out.data();
  putCount(out, catalogue.releases->size());
  for (const Release& release : *catalogue.releases) putRelease(out, release);
  putCount(out, 0);  // a second table, which readers pass over
  if (!catalogue.beta) return out.data();
  out.putBool(true);
  putRelease(out, *catalogue.beta);
  return out.data();
}

Bytes defsBody(std::span<const SessionDefinition> sessions) {
  DataEncoder out;
  putCount(out, sessions.size());
  for (const SessionDefinition& session : sessions) {
    out.putDouble(session.red);
    out.putDouble(session.green);
    out.putDouble(session.blue);
    out.putDouble(session.alpha);
    out.putString(session.name);
  }
  return out.data();
}

Bytes rinksBody(std::span<const RinkRow> rinks) {
  DataEncoder out;
  putCount(out, rinks.size());
  for (const RinkRow& row : rinks) {
    const Rink& rink = *row.rink;
    out.putInt(rink.rinkID);
    out.putString(rink.name);
    out.putString(rink.street);
    out.putString(rink.city);
    out.putString(rink.state);
    out.putString(rink.zip);
    out.putUInt64(rink.phone);
    out.putDouble(rink.latitude);
    out.putDouble(rink.longitude);
    out.putString(rink.timeZone);
    out.putString(rink.websiteUrl);
    out.putString(rink.serverUrl);
    out.putString(rink.dataPath);
    putLogo(out, rink.logo, row.logoDate);
    putLogo(out, rink.darkLogo, row.darkLogoDate);
  }
  return out.data();
}

Bytes masterFile(const Promise& main) {
  DataEncoder out;
  putPromise(out, main);
  return out.data();
}

Bytes mainBody(const Rink& rink, std::span<const Promise> files, const PhotoRow* cover) {
  DataEncoder out;
  out.putUInt32(rink.firstWeek);
  out.putUInt32(rink.lastWeek);
  putCount(out, rink.venues.size());
  for (const Venue& venue : rink.venues) {
    out.putInt(venue.venueID);
    out.putInt8(venue.kind);
    out.putString(venue.name);
    out.putString(venue.note);
    out.putInt(venue.displayOrder);
  }
  putCount(out, files.size());
  for (const Promise& file : files) putPromise(out, file);
  out.putString(rink.photosFolder);
  out.putString("");  // a field that readers pass over
  if (!cover) {
    const Photo none;
    putCount(out, 0);
    out.putString(none.title);
    out.putString(none.description);
    putVersions(out, {&none, {}});
    return out.data();
  }
  out.putInt(cover->photo->photoID);
  out.putString(cover->photo->title);
  out.putString(cover->photo->description);
  putVersions(out, *cover);
  return out.data();
}

Bytes noticesBody(std::span<const Notice> notices) {
  DataEncoder out;
  putCount(out, notices.size());
  for (const Notice& notice : notices) {
    out.putInt(notice.noticeID);
    out.putUInt32(notice.date);
    out.putString(notice.summary);
    out.putString(notice.detail);
  }
  return out.data();
}

Bytes photoCollectionBody(std::span<const PhotoRow> photos, std::span<const Album> albums) {
  DataEncoder out;
  putCount(out, photos.size());
  for (const PhotoRow& row : photos) {
    out.putInt(row.photo->photoID);
    out.putString(row.photo->title);
    out.putString(row.photo->description);
    putVersions(out, row);
  }
  putCount(out, albums.size());
  for (const Album& album : albums) {
    out.putInt(album.albumID);
    out.putString(album.title);
    out.putString(album.description);
    putCount(out, album.photoIDs.size());
    for (const std::int64_t photoID : album.photoIDs) out.putInt(photoID);
  }
  return out.data();
}

Bytes schedulesBody(std::span<const Promise> weeks) {
  DataEncoder out;
  putCount(out, weeks.size());
  for (const Promise& week : weeks) putPromise(out, week);
  return out.data();
}

Bytes weekBody(std::span<const Session> sessions) {
  DataEncoder out;
  putCount(out, sessions.size());
  for (const Session& session : sessions) {
    out.putInt8(session.kind);
    out.putInt8(session.day);
    out.putInt16(session.time);
    out.putInt16(session.duration);
    out.putString(session.subtitle);
    out.putString(session.note);
  }
  return out.data();
}

Bytes withDate(Instant date, ByteView body) {
  DataEncoder out = DataEncoder::withCapacity(static_cast<std::int64_t>(kDateSize + body.size()));
  out.putDouble(date.seconds);
  out.appendData(body);
  return out.data();
}

std::optional<Instant> dateOf(ByteView file) {
  if (file.size() < kDateSize) return std::nullopt;
  return Instant{DataDecoder(file.first(kDateSize)).getDouble()};
}

std::string schedulesName(std::int64_t venueID) {
  return fmt::format("venue-{}_schedules.b1", venueID);
}

std::string weekName(std::int64_t venueID, PackedDate weekOf) {
  return fmt::format("venue-{}_week-{}-{:02}-{:02}.b1", venueID, yearOf(weekOf), monthOf(weekOf),
                     dayOf(weekOf));
}

std::string photoName(std::int64_t photoID, std::size_t version) {
  return fmt::format("{}-{}.jpg", photoID, version);
}

std::string logoName(std::int64_t rinkID) {
  return fmt::format("{}.png", rinkID);
}
std::string darkLogoName(std::int64_t rinkID) {
  return fmt::format("{}-dark.png", rinkID);
}

}  // namespace tarvel::publish
