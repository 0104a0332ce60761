#pragma once
#include <memory>
#include <vector>

#include "model/Photo.h"
#include "model/PhotoAlbum.h"
#include "platform/Bytes.h"

namespace tarvel {

/// A rink's photos and albums as its server lists them; they belong to no rink yet.
struct PhotoCollectionFile {
  Instant fileDate;
  PhotoList photos;                                 ///< ascending by photoID
  std::vector<std::shared_ptr<PhotoAlbum>> albums;  ///< in the order to show
};

/// Decodes "photoCollection.b1". Throws `DecodeError`; a negative count stops the program.
PhotoCollectionFile decodePhotoCollectionFile(ByteView file);

}  // namespace tarvel
