#include "model/PhotoCollectionFile.h"

#include <algorithm>

#include "foundation/DataDecoder.h"
#include "model/FileDate.h"

namespace tarvel {

namespace {

constexpr std::uint64_t kLeastPhotoBytes = 4;
constexpr std::uint64_t kLeastAlbumBytes = 4;
constexpr std::uint64_t kLeastIDBytes = 1;

PhotoList decodePhotos(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastPhotoBytes);
  PhotoList photos;
  photos.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    auto photo = std::make_shared<Photo>();
    photo->photoID = decoder.getInt();
    photo->title = decoder.getString();
    photo->descr = decoder.getString();
    photo->versions = decodeImageVersions(decoder);
    photos.push_back(std::move(photo));
  }
  // Photos are looked up by bisection.
  std::stable_sort(photos.begin(), photos.end(),
                   [](const auto& a, const auto& b) { return a->photoID < b->photoID; });
  return photos;
}

std::vector<std::shared_ptr<PhotoAlbum>> decodeAlbums(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastAlbumBytes);
  std::vector<std::shared_ptr<PhotoAlbum>> albums;
  albums.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    auto album = std::make_shared<PhotoAlbum>();
    album->albumID = decoder.getInt();
    album->title = decoder.getString();
    album->descr = decoder.getString();
    const std::int64_t ids = decoder.getCount(kLeastIDBytes);
    album->photoIDs.reserve(static_cast<std::size_t>(ids));
    for (std::int64_t n = 0; n < ids; ++n) album->photoIDs.push_back(decoder.getInt());
    albums.push_back(std::move(album));
  }
  return albums;
}

}  // namespace

PhotoCollectionFile decodePhotoCollectionFile(ByteView file) {
  DataDecoder decoder(file);
  PhotoCollectionFile collection;
  collection.fileDate = getFileDate(decoder);
  collection.photos = decodePhotos(decoder);
  collection.albums = decodeAlbums(decoder);
  return collection;
}

}  // namespace tarvel
