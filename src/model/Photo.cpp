#include "model/Photo.h"

#include "model/FileDate.h"

namespace tarvel {

namespace {
constexpr std::uint64_t kLeastVersionBytes = 25;
}

std::vector<ImageVersion> decodeImageVersions(DataDecoder& decoder) {
  const std::int64_t count = decoder.getCount(kLeastVersionBytes);
  std::vector<ImageVersion> versions;
  versions.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i) {
    ImageVersion version;
    version.size.width = decoder.getDouble();
    version.size.height = decoder.getDouble();
    version.fileSize = decoder.getInt();
    version.fileDate = getFileDate(decoder);
    versions.push_back(version);
  }
  return versions;
}

}  // namespace tarvel
