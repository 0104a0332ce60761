#include <fmt/format.h>

#include <unordered_set>

#include "model/FileNames.h"
#include "model/StoredFile.h"
#include "refresh/RinkRefresh.h"

/// The part of `RinkRefresh` that deals with the rink's photos: their collection, and the files of their
/// versions.
namespace tarvel {

void RinkRefresh::requestPhotoFile(Photo& photo, std::int64_t version) {
  const std::shared_ptr<RinkInfo> info = rink_.rinkInfo();
  if (!info || rink_.photosFolder().empty()) return;
  // The download keeps the photo: its file is stored even if a new collection has come meanwhile, which finds
  // it there if it still wants that version.
  const std::string url = info->serverUrl + "/" + rink_.photosFolder() + "/" + photo.fileName(version);
  const bool added = request(url, [this, kept = photo.shared_from_this(), version](ByteView body) {
    photoFileReceived(*kept, version, body);
  });
  // One that fails stays as requested: a view that draws again and again must not ask again and again.
  if (added) photo.setDownloadStatus(DownloadStatus::requested(), version);
}

void RinkRefresh::photoCollectionFileReceived(ByteView body) {
  services_.console.printLine(receivedLine("photo collection", "  ", body));
  PhotoCollectionFile file = decodePhotoCollectionFile(body);
  const Instant fileDate = file.fileDate;
  store(body, std::string(kPhotoCollectionFileName), fileDate);
  rink_.adoptPhotos(std::move(file));
  if (rink_.photosFileDate && *rink_.photosFileDate != fileDate) {
    reportMismatch("date mismatch for photoCollection.b1 - " + rink_.refreshName() + "\n    modified  " +
                   dateText(fileDate) + "\n    expected  " + dateText(rink_.photosFileDate));
    return;
  }
  updatePhotos();
}

void RinkRefresh::photoFileReceived(Photo& photo, std::int64_t version, ByteView body) {
  const std::string name = photo.fileName(version);
  std::shared_ptr<const Image> image = photo.decode(body, version, services_.images);
  if (!image) {
    photo.setDownloadStatus({DownloadStatus::Kind::invalidData, {}}, version);
    logError(DownloadErrorKind::invalidData, "Invalid data for photo " + name);
    return;
  }
  photo.setImage(std::move(image), version);
  const ImageVersion& wanted = photo.versions[static_cast<std::size_t>(version) - 1];
  storeFile(services_, rink_.messageLog(), body, name, rink_.photosFolderPath(), wanted.fileDate);
  const auto length = static_cast<std::int64_t>(body.size());
  if (length == wanted.fileSize) return;
  services_.console.printLine("size mismatch for " + name + " - " + rink_.refreshName());
  services_.console.printLine(fmt::format("    fileSize      = {}", length));
  services_.console.printLine(fmt::format("    expectedSize  = {}", wanted.fileSize));
  state_.mismatchError = true;
}

void RinkRefresh::updatePhotoCollection() {
  const std::optional<Instant> stored = rink_.storedFileDate(std::string(kPhotoCollectionFileName));
  if (!stored) return;
  if (stored == rink_.photosFileDate) {
    updatePhotos();
  } else {
    requestFile("/" + std::string(kPhotoCollectionFileName));
  }
}

void RinkRefresh::updatePhotos() {
  if (!rink_.photosFileRead) rink_.readPhotos();
  if (!rink_.photoListCache) return;
  // A big collection has far more versions than stored files, so the folder is asked once for its names.
  const auto entries = listVisible(services_.files, rink_.photosFolderPath());
  std::unordered_set<std::string> stored;
  if (entries) {
    for (const FolderEntry& entry : *entries) stored.insert(entry.name);
  }
  for (const auto& photo : *rink_.photoListCache) {
    photo->forgetOutdated([&](const std::string& name) { return stored.contains(name); });
  }
  if (entries) removeUnlistedPhotos(*entries);
}

void RinkRefresh::removeUnlistedPhotos(const std::vector<FolderEntry>& entries) {
  for (const FolderEntry& entry : entries) {
    if (entry.kind == FileKind::folder || extensionOf(entry.name) != "jpg") continue;
    const std::string base = withoutExtension(entry.name);
    const std::optional<std::int64_t> photoID = parseInteger(base.substr(0, base.find('-')));
    if (photoID && !rink_.photo(*photoID)) {
      removeStoredFile(services_, join(rink_.photosFolderPath(), entry.name));
    }
  }
}

}  // namespace tarvel
