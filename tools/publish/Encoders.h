#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Records.h"
#include "platform/Bytes.h"
#include "platform/Instant.h"

/// The bytes of each kind of file. A `...Body` is all that stands behind the file's own date: whether a file
/// has to get a new date is seen by comparing bodies. `root.b1` and `master.b1` carry no date of their own.
namespace tarvel::publish {

/// The date that a file will have, as the file above it in the tree tells it.
struct Promise {
  std::string name;
  Instant date;
};

/// A rink's row in the list of rinks. A date stands where the rink has that logo.
struct RinkRow {
  const Rink* rink = nullptr;
  std::optional<Instant> logoDate;
  std::optional<Instant> darkLogoDate;
};

/// A photo with the dates of its versions, in their order.
struct PhotoRow {
  const Photo* photo = nullptr;
  std::vector<Instant> dates;
};

Bytes rootFile(const Catalogue& catalogue, std::span<const Promise> files);
Bytes defsBody(std::span<const SessionDefinition> sessions);
Bytes rinksBody(std::span<const RinkRow> rinks);

Bytes masterFile(const Promise& main);
/// `cover` is null for a rink without a cover photo.
Bytes mainBody(const Rink& rink, std::span<const Promise> files, const PhotoRow* cover);
Bytes noticesBody(std::span<const Notice> notices);
Bytes photoCollectionBody(std::span<const PhotoRow> photos, std::span<const Album> albums);
Bytes schedulesBody(std::span<const Promise> weeks);
Bytes weekBody(std::span<const Session> sessions);

/// The bytes that a file's own date takes at its start.
inline constexpr std::size_t kDateSize = 8;
/// The whole file.
Bytes withDate(Instant date, ByteView body);
/// The date at the start of a whole file; none if it is shorter than that.
std::optional<Instant> dateOf(ByteView file);

/// "venue-7_schedules.b1", "venue-7_week-2026-03-01.b1", "31-2.jpg", "12.png", "12-dark.png".
std::string schedulesName(std::int64_t venueID);
std::string weekName(std::int64_t venueID, PackedDate weekOf);
std::string photoName(std::int64_t photoID, std::size_t version);
std::string logoName(std::int64_t rinkID);
std::string darkLogoName(std::int64_t rinkID);

}  // namespace tarvel::publish
