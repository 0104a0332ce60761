#include <algorithm>

#include "model/FileNames.h"
#include "model/MainFile.h"
#include "model/RinkData.h"
#include "model/StoredFile.h"

/// The part of `RinkData` that deals with the rink's photos.
namespace tarvel {

void RinkData::readPhotos() {
  const auto request = [this] { refresher_->requestFile("/" + std::string(kPhotoCollectionFileName)); };
  const std::optional<Instant> stored = storedFileDate(std::string(kPhotoCollectionFileName));
  if (!stored || stored != photosFileDate) return request();
  const Path path = join(folder_, kPhotoCollectionFileName);
  const Result<Bytes> content = context_.services.files.read(path);
  if (!content) return request();
  try {
    adoptPhotos(decodePhotoCollectionFile(*content));
  } catch (const DecodeError& error) {
    dropDamagedFile(context_.services, context_.errorLog, path, error);
    request();
  }
}

void RinkData::adoptPhotos(PhotoCollectionFile file) {
  for (const auto& photo : file.photos) photo->rinkData = weak_from_this();
  for (const auto& album : file.albums) album->rinkData = weak_from_this();
  photoListCache = std::move(file.photos);
  albumListCache.emplace(file.albums.begin(), file.albums.end());
  photosFileRead = true;
  postNotification(kPhotoCollectionChanged);
}

const std::optional<AlbumList>& RinkData::albumList() {
  if (!photosFileRead) readPhotos();
  return albumListCache;
}

std::shared_ptr<Photo> RinkData::photo(std::int64_t photoID) {
  if (!photosFileRead) readPhotos();
  if (!photoListCache) return nullptr;
  const auto found = std::lower_bound(photoListCache->begin(), photoListCache->end(), photoID,
                                      [](const auto& photo, std::int64_t id) { return photo->photoID < id; });
  return found != photoListCache->end() && (*found)->photoID == photoID ? *found : nullptr;
}

std::shared_ptr<const PhotoAlbum> RinkData::album(std::int64_t albumID) {
  const auto& albums = albumList();
  if (!albums) return nullptr;
  const auto found = std::find_if(albums->begin(), albums->end(),
                                  [&](const auto& album) { return album->albumID == albumID; });
  return found == albums->end() ? nullptr : *found;
}

void RinkData::adoptCoverPhoto(const MainFile& file) {
  auto photo = std::make_shared<Photo>();
  photo->photoID = file.coverPhotoID;
  photo->title = file.coverPhotoTitle;
  photo->descr = file.coverPhotoDescription;
  photo->versions = file.coverPhotoVersions;
  photo->rinkData = weak_from_this();
  coverPhotoCache = std::move(photo);
}

void RinkData::releaseImages(Instant now) {
  if (!photoListCache) return;
  for (const auto& photo : *photoListCache) photo->releaseImages(now);
}

Path RinkData::photosFolderPath() const {
  return join(folder_, kPhotosFolderName);
}

}  // namespace tarvel
