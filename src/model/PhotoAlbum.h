#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "foundation/InstanceCounter.h"

namespace tarvel {

class RinkData;

/// An album of a rink's photos. It never changes; a newer version of it is another object of the same id.
class PhotoAlbum : Counted<PhotoAlbum> {
 public:
  using Counted<PhotoAlbum>::liveCount;

  std::int64_t albumID = 0;
  std::string title;
  std::string descr;
  std::vector<std::int64_t> photoIDs;  ///< in the order to show; an id may name no photo
  std::weak_ptr<RinkData> rinkData;
};

using AlbumList = std::vector<std::shared_ptr<const PhotoAlbum>>;

}  // namespace tarvel
