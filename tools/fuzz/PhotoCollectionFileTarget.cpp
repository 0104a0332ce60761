#include <algorithm>

#include "Checks.h"
#include "Targets.h"
#include "Writing.h"
#include "model/PhotoCollectionFile.h"

namespace tarvel::fuzz {

namespace {

constexpr Size kBox{300.0, 200.0};
constexpr Size kScreen{144.0, 144.0};

Bytes encode(const PhotoCollectionFile& collection) {
  DataEncoder out;
  out.putDouble(collection.fileDate.seconds);
  putList(out, collection.photos, [&](const auto& photo) {
    out.putInt(photo->photoID);
    out.putString(photo->title);
    out.putString(photo->descr);
    putImageVersions(out, photo->versions);
  });
  putList(out, collection.albums, [&](const auto& album) {
    out.putInt(album->albumID);
    out.putString(album->title);
    out.putString(album->descr);
    putList(out, album->photoIDs, [&](std::int64_t photoID) { out.putInt(photoID); });
  });
  return out.data();
}

}  // namespace

void photoCollectionFile(ByteView input) {
  const auto collection = roundTrip(input, decodePhotoCollectionFile, encode);
  if (!collection) return;
  require(std::is_sorted(collection->photos.begin(), collection->photos.end(),
                         [](const auto& a, const auto& b) { return a->photoID < b->photoID; }),
          "photos ascend by their ids");
  for (const auto& photo : collection->photos) {
    const auto count = static_cast<std::int64_t>(photo->versions.size());
    const auto chosen = photo->chooseVersion(kBox, kScreen);
    require(chosen.has_value() == (count > 0), "a photo with versions has one for every box");
    require(!chosen || (chosen->version >= 1 && chosen->version <= count), "a chosen version is there");
    require(photo->fitHeight(kBox.height, kScreen).has_value() == (count > 0), "and one for every height");
  }
}

}  // namespace tarvel::fuzz
