#pragma once
#include <utility>
#include <vector>

#include "model/Photo.h"
#include "support/Encoded.h"

namespace tarvel {

using PhotoIDs = std::vector<std::int64_t>;

/// A rink's photo collection as a server publishes it; the texts are made of the ids.
struct PublishedPhotos {
  using Entry = std::pair<std::int64_t, std::vector<ImageVersion>>;

  Instant date;
  std::vector<Entry> photos;
  std::vector<std::pair<std::int64_t, PhotoIDs>> albums;

  Bytes file() const {
    const auto version = [](const ImageVersion& v) {
      return encoded(v.size.width, v.size.height, v.fileSize, v.fileDate);
    };
    return encoded(date,
                   encodedList(photos,
                               [&](const Entry& photo) {
                                 return encoded(photo.first, "Photo " + std::to_string(photo.first),
                                                std::string(), encodedList(photo.second, version));
                               }),
                   encodedList(albums, [](const auto& album) {
                     return encoded(album.first, "Album " + std::to_string(album.first), "About it",
                                    encodedList(album.second, [](std::int64_t id) { return encoded(id); }));
                   }));
  }
};

}  // namespace tarvel
