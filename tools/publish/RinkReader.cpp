#include "RinkReader.h"

#include <fmt/format.h>

#include <algorithm>

#include "FieldParsers.h"
#include "InputFolder.h"
#include "InputNode.h"
#include "Kinds.h"
#include "PhotosReader.h"
#include "WeeksReader.h"
#include "platform/TimeZone.h"

namespace tarvel::publish {
namespace {

constexpr std::string_view kAddressForm = "an http or https address";
constexpr std::int64_t kLargestOrder = 1'000'000;

std::optional<std::string> webAddress(std::string_view text) {
  return isWebAddress(text) ? std::optional(std::string(text)) : std::nullopt;
}

std::optional<std::string> webAddressOrNone(std::string_view text) {
  return text.empty() ? std::optional(std::string()) : webAddress(text);
}

std::optional<std::string> safePath(std::string_view text) {
  // The catalogue's own files lie there.
  if (!isSafePath(text) || text == "logos" || text.starts_with("logos/")) return std::nullopt;
  return std::string(text);
}

std::optional<std::string> knownZone(std::string_view text) {
  return TimeZone::named(text) ? std::optional(std::string(text)) : std::nullopt;
}

void readCard(InputNode& root, Rink& rink) {
  rink.rinkID = root.id("rinkID");
  rink.name = root.name("name");
  rink.street = root.text("street", Presence::optional);
  rink.city = root.text("city", Presence::optional);
  rink.state = root.text("state", Presence::optional);
  rink.zip = root.text("zip", Presence::optional);
  rink.phone =
      root.parsed("phone", Presence::optional, parsePhone, "a phone number of 7 or 10 digits").value_or(0);
  rink.latitude = root.number("latitude", -90.0, 90.0);
  rink.longitude = root.number("longitude", -180.0, 180.0);
  rink.timeZone =
      root.parsed("timeZone", Presence::required, knownZone, "the identifier of a known time zone")
          .value_or("");
  rink.websiteUrl = root.parsed("website", Presence::optional, webAddressOrNone, kAddressForm).value_or("");
}

void readPlaces(InputNode& root, const RinkDefaults& defaults, Rink& rink) {
  rink.serverUrl =
      root.parsed("serverUrl", Presence::optional, webAddress, kAddressForm).value_or(defaults.serverUrl);
  if (rink.serverUrl.empty() && !root.has("serverUrl")) {
    root.complain("serverUrl", "is missing, and the catalogue gives none for all rinks");
  }
  if (rink.serverUrl.ends_with('/')) root.complain("serverUrl", "must not end in \"/\"");
  constexpr std::string_view kFolderForm =
      "a path of letters, digits, '.', '_', '-' and '/' outside of \"logos\"";
  rink.dataPath = root.parsed("dataPath", Presence::required, safePath, kFolderForm).value_or("");
  rink.photosFolder = root.parsed("photosFolder", Presence::optional, safePath, kFolderForm).value_or("");
}

void readLogos(InputNode& root, const InputFolder& folder, Rink& rink) {
  if (const auto logo = root.member("logo", Presence::optional))
    rink.logo = readImage(folder, *logo, ImageFormat::png);
  if (const auto logo = root.member("darkLogo", Presence::optional)) {
    rink.darkLogo = readImage(folder, *logo, ImageFormat::png);
  }
}

void readVenues(InputNode& root, Rink& rink) {
  std::int64_t position = 0;
  for (InputNode node : root.list("venues", Presence::required)) {
    Venue venue;
    venue.venueID = node.id("venueID");
    venue.kind = node.parsed("kind", Presence::required, venueKind, "one of " + venueKindList()).value_or(0);
    venue.name = node.text("name", Presence::optional);
    venue.note = node.text("note", Presence::optional);
    venue.displayOrder = node.integer("displayOrder", -kLargestOrder, kLargestOrder, ++position);
    node.noOtherKeys();
    const bool known = std::any_of(rink.venues.begin(), rink.venues.end(),
                                   [&](const Venue& other) { return other.venueID == venue.venueID; });
    if (known && venue.venueID != 0)
      node.complain("venueID", fmt::format("{} stands here twice", venue.venueID));
    rink.venues.push_back(venue);
  }
  std::sort(rink.venues.begin(), rink.venues.end(),
            [](const Venue& a, const Venue& b) { return a.venueID < b.venueID; });
}

/// The weeks that are offered: as the record says, or else from the first week described to the last.
void readWeekRange(InputNode& root, Rink& rink) {
  constexpr std::string_view kSundayForm = "the date of a Sunday such as \"2026-03-01\"";
  const auto given = [&](const char* key) {
    return root.parsed(key, Presence::optional, parseSunday, kSundayForm).value_or(kNoDate);
  };
  rink.firstWeek = given("firstWeek");
  rink.lastWeek = given("lastWeek");
  for (const Week& week : rink.weeks) {
    if (!root.has("firstWeek") && (rink.firstWeek == kNoDate || week.weekOf < rink.firstWeek)) {
      rink.firstWeek = week.weekOf;
    }
    if (!root.has("lastWeek")) rink.lastWeek = std::max(rink.lastWeek, week.weekOf);
  }
  if (rink.firstWeek == kNoDate && !root.has("firstWeek")) {
    root.complain("firstWeek", "is missing, and there is no week to take it from");
  }
  if (rink.lastWeek == kNoDate && !root.has("lastWeek")) rink.lastWeek = rink.firstWeek;
  if (rink.lastWeek != kNoDate && rink.lastWeek < rink.firstWeek) {
    root.complain("lastWeek", "lies before the first week");
  }
  std::erase_if(rink.weeks, [&](const Week& week) {
    return week.weekOf < rink.firstWeek || week.weekOf > rink.lastWeek;
  });
}

void readCover(InputNode& root, Rink& rink) {
  rink.coverPhotoID = root.id("coverPhoto", Presence::optional);
  if (rink.coverPhotoID == 0) return;
  const bool known = std::any_of(rink.photos.begin(), rink.photos.end(),
                                 [&](const Photo& photo) { return photo.photoID == rink.coverPhotoID; });
  if (!known)
    root.complain("coverPhoto", fmt::format("there is no photo {} in photos.json", rink.coverPhotoID));
}

}  // namespace

std::optional<Rink> readRink(FileSystem& files, const Path& inputFolder, const std::string& rinkFolder,
                             const RinkDefaults& defaults, Problems& problems) {
  const InputFolder folder{files, inputFolder, rinkFolder, problems};
  const auto document = InputDocument::read(files, inputFolder, folder.nameOf("rink.json"), problems);
  if (!document) return std::nullopt;
  InputNode root = document->root(problems);
  Rink rink;
  readCard(root, rink);
  readPlaces(root, defaults, rink);
  readLogos(root, folder, rink);
  readVenues(root, rink);
  readNotices(folder, rink);
  readPhotos(folder, rink);
  readWeeks(folder, rink);
  readWeekRange(root, rink);
  readCover(root, rink);
  if (!rink.photos.empty() && rink.photosFolder.empty() && !root.has("photosFolder")) {
    root.complain("photosFolder", "is missing, and the rink has photos");
  }
  root.noOtherKeys();
  return rink;
}

}  // namespace tarvel::publish
