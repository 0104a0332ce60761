#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "foundation/DataDecoder.h"
#include "foundation/InstanceCounter.h"
#include "platform/Geometry.h"
#include "platform/Instant.h"

namespace tarvel {

/// One rendition of a photo.
struct ImageVersion {
  Size size;                  ///< pixels
  std::int64_t fileSize = 0;  ///< bytes
  Instant fileDate;           ///< the date that the file must have
  friend bool operator==(const ImageVersion&, const ImageVersion&) = default;
};

/// Reads a count and that many versions.
std::vector<ImageVersion> decodeImageVersions(DataDecoder& decoder);

/// A photo of a rink: its texts and its renditions in ascending size, as the server lists them.
class Photo : Counted<Photo> {
 public:
  using Counted<Photo>::liveCount;

  std::int64_t photoID = 0;
  std::string title;
  std::string descr;
  std::vector<ImageVersion> versions;
};

}  // namespace tarvel
