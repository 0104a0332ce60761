#include "PhotosReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

#include "FieldParsers.h"
#include "InputNode.h"

namespace tarvel::publish {
namespace {

std::int64_t uniqueID(InputNode& node, const std::string& key, std::set<std::int64_t>& seen) {
  const std::int64_t id = node.id(key);
  if (id != 0 && !seen.insert(id).second) node.complain(key, fmt::format("{} stands here twice", id));
  return id;
}

/// A reader takes the first version that is large enough, so each has to be larger than the one before.
void orderVersions(const InputNode& node, Photo& photo) {
  auto& versions = photo.versions;
  std::sort(versions.begin(), versions.end(), [](const ImageFile& a, const ImageFile& b) {
    return std::pair(a.width, a.height) < std::pair(b.width, b.height);
  });
  for (std::size_t i = 1; i < versions.size(); ++i) {
    const ImageFile& smaller = versions[i - 1];
    const ImageFile& larger = versions[i];
    if (larger.height < smaller.height ||
        (larger.width == smaller.width && larger.height == smaller.height)) {
      node.complain("versions", fmt::format("{} x {} and {} x {} are not one picture in rising sizes",
                                            smaller.width, smaller.height, larger.width, larger.height));
    }
  }
}

Photo readPhoto(const InputFolder& folder, InputNode node, std::set<std::int64_t>& seen) {
  Photo photo;
  photo.photoID = uniqueID(node, "photoID", seen);
  photo.title = node.text("title", Presence::optional);
  photo.description = node.text("description", Presence::optional);
  const auto versions = node.list("versions", Presence::required);
  if (versions.empty() && node.has("versions")) node.complain("versions", "must name one image or more");
  for (const InputNode& version : versions) {
    if (auto image = readImage(folder, version, ImageFormat::jpeg))
      photo.versions.push_back(std::move(*image));
  }
  orderVersions(node, photo);
  node.noOtherKeys();
  return photo;
}

Album readAlbum(InputNode node, const std::set<std::int64_t>& photos, std::set<std::int64_t>& seen) {
  Album album;
  album.albumID = uniqueID(node, "albumID", seen);
  album.title = node.text("title", Presence::optional);
  album.description = node.text("description", Presence::optional);
  for (const InputNode& each : node.list("photos", Presence::required)) {
    const auto id = each.integerValue(1, kLargestID, "the photoID of a photo");
    if (!id) continue;
    if (!photos.contains(*id)) each.complain(fmt::format("there is no photo {}", *id));
    album.photoIDs.push_back(*id);
  }
  node.noOtherKeys();
  return album;
}

}  // namespace

void readNotices(const InputFolder& folder, Rink& rink) {
  const auto document = folder.optionalDocument("notices.json");
  if (!document) return;
  InputNode root = document->root(folder.problems);
  std::set<std::int64_t> seen;
  for (InputNode node : root.list("notices", Presence::required)) {
    Notice notice;
    notice.noticeID = uniqueID(node, "noticeID", seen);
    notice.date =
        node.parsed("date", Presence::required, parseDate, "a date such as \"2026-03-01\"").value_or(kNoDate);
    notice.summary = node.name("summary");
    notice.detail = node.text("detail", Presence::optional);
    node.noOtherKeys();
    rink.notices.push_back(std::move(notice));
  }
  root.noOtherKeys();
}

void readPhotos(const InputFolder& folder, Rink& rink) {
  const auto document = folder.optionalDocument("photos.json");
  if (!document) return;
  InputNode root = document->root(folder.problems);
  std::set<std::int64_t> photoIDs;
  std::set<std::int64_t> albumIDs;
  for (const InputNode& node : root.list("photos", Presence::required)) {
    rink.photos.push_back(readPhoto(folder, node, photoIDs));
  }
  for (const InputNode& node : root.list("albums", Presence::optional)) {
    rink.albums.push_back(readAlbum(node, photoIDs, albumIDs));
  }
  std::sort(rink.photos.begin(), rink.photos.end(),
            [](const Photo& a, const Photo& b) { return a.photoID < b.photoID; });
  root.noOtherKeys();
}

}  // namespace tarvel::publish
