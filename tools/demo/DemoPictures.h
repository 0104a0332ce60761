#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "DemoRinks.h"
#include "platform/FileSystem.h"

namespace tarvel::demo {

struct DrawnPhoto {
  std::int64_t photoID = 0;
  std::string title;
  std::string description;
  std::vector<std::string> files;  ///< below the rink's folder, in rising size
};

struct DrawnAlbum {
  std::int64_t albumID = 0;
  std::string title;
  std::string description;
  std::vector<std::int64_t> photoIDs;
};

struct DrawnPictures {
  std::string logo;  ///< below the rink's folder
  std::string darkLogo;
  std::vector<DrawnPhoto> photos;
  std::vector<DrawnAlbum> albums;
};

/// Makes sure that the rink's logos, and its photos in three sizes if it has any, lie in the folder: what is
/// missing is drawn. Fails when the disk does.
Result<DrawnPictures> drawPictures(FileSystem& files, const Path& folder, const DemoRink& rink,
                                   std::uint64_t seed);

}  // namespace tarvel::demo
