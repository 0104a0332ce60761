#include "model/Photo.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "model/FileDate.h"
#include "model/RinkData.h"
#include "platform/FatalError.h"

namespace tarvel {

namespace {

constexpr std::uint64_t kLeastVersionBytes = 25;
constexpr double kPointsPerInch = 72.0;

}  // namespace

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

std::optional<ChosenVersion> Photo::chooseVersion(Size box, Size resolution) const {
  if (versions.empty()) return std::nullopt;
  const Size needed{box.width * resolution.width / kPointsPerInch,
                    box.height * resolution.height / kPointsPerInch};
  auto found = std::find_if(versions.begin(), versions.end(), [&](const ImageVersion& version) {
    return version.size.width >= needed.width && version.size.height >= needed.height;
  });
  if (found == versions.end()) --found;
  return ChosenVersion{found - versions.begin() + 1, found->size};
}

std::optional<Size> Photo::fitHeight(double height, Size resolution) const {
  if (versions.empty()) return std::nullopt;
  const double target = height * resolution.height / kPointsPerInch;
  const auto found = std::find_if(versions.begin(), versions.end(),
                                  [&](const ImageVersion& version) { return version.size.height >= target; });
  return found == versions.end() ? versions.back().size : found->size;
}

std::shared_ptr<const Image> Photo::image(std::int64_t version) {
  record(version);
  const auto index = static_cast<std::size_t>(version) - 1;
  if (index < versionCache.size() && versionCache[index].image) return versionCache[index].image;
  const DownloadStatus::Kind status = downloadStatus(version).kind;
  // A file found bad would be read and found bad again with every drawing.
  if (status != DownloadStatus::Kind::invalidData) {
    if (std::shared_ptr<const Image> stored = loadStored(version)) {
      entry(version).image = stored;
      return stored;
    }
  }
  if (status == DownloadStatus::Kind::idle) {
    if (const auto rink = rinkData.lock()) rink->refresher().requestPhotoFile(*this, version);
  }
  return neighbourOf(version);
}

std::shared_ptr<const Image> Photo::loadStored(std::int64_t version) const {
  if (!isCurrent(version)) return nullptr;
  const auto rink = rinkData.lock();
  const Result<Bytes> content =
      rink->services().files.read(join(rink->photosFolderPath(), fileName(version)));
  return content ? decode(*content, version, rink->services().images) : nullptr;
}

std::shared_ptr<const Image> Photo::decode(ByteView file, std::int64_t version, ImageDecoder& decoder) const {
  const Size size = record(version).size;
  // Sizes of no meaning limit nothing; the decoder has its own limits.
  if (!(size.width >= 1.0 && size.height >= 1.0)) return decoder.decode(file);
  return decoder.decodeWithin(file, size);
}

bool Photo::isCurrent(std::int64_t version) const {
  const auto rink = rinkData.lock();
  if (!rink) return false;
  const auto info = rink->services().files.info(join(rink->photosFolderPath(), fileName(version)));
  const ImageVersion& wanted = record(version);
  return info && info->modificationDate == wanted.fileDate && info->size == wanted.fileSize;
}

std::shared_ptr<const Image> Photo::neighbourOf(std::int64_t version) const {
  // A larger one loses nothing when it is drawn smaller, so those go first.
  const auto index = static_cast<std::size_t>(version) - 1;
  for (std::size_t i = index + 1; i < versionCache.size(); ++i) {
    if (versionCache[i].image) return versionCache[i].image;
  }
  for (std::size_t i = std::min(index, versionCache.size()); i-- > 0;) {
    if (versionCache[i].image) return versionCache[i].image;
  }
  return nullptr;
}

const ImageVersion& Photo::record(std::int64_t version) const {
  if (version < 1 || static_cast<std::size_t>(version) > versions.size()) {
    fatalError("a photo has no such version");
  }
  return versions[static_cast<std::size_t>(version) - 1];
}

VersionCacheEntry& Photo::entry(std::int64_t version) {
  record(version);
  const auto least = static_cast<std::size_t>(version);
  if (versionCache.size() < least) versionCache.resize(least);
  return versionCache[least - 1];
}

DownloadStatus Photo::downloadStatus(std::int64_t version) const {
  const auto index = static_cast<std::size_t>(version) - 1;
  return version >= 1 && index < versionCache.size() ? versionCache[index].downloadStatus
                                                     : DownloadStatus::idle();
}

void Photo::setImage(std::shared_ptr<const Image> image, std::int64_t version) {
  entry(version) = {std::move(image), DownloadStatus::idle()};
  postImageChanged();
}

void Photo::setDownloadStatus(const DownloadStatus& status, std::int64_t version) {
  entry(version).downloadStatus = status;
  postImageChanged();
}

bool Photo::resetStatus(std::int64_t version) {
  const auto index = static_cast<std::size_t>(version) - 1;
  if (index >= versionCache.size()) return true;
  DownloadStatus& status = versionCache[index].downloadStatus;
  if (status.kind == DownloadStatus::Kind::requested) return false;
  status = DownloadStatus::idle();
  return true;
}

void Photo::addView() {
  ++viewCount;
  cacheExpiration.reset();
}

void Photo::removeView(Instant now) {
  if (viewCount < 1) fatalError("a photo's view count falls below zero");
  if (--viewCount == 0) cacheExpiration = now + kImageLifetime;
}

void Photo::releaseImages(Instant now) {
  if (viewCount != 0 || !cacheExpiration || *cacheExpiration > now) return;
  bool changed = false;
  for (VersionCacheEntry& cached : versionCache) changed |= std::exchange(cached.image, nullptr) != nullptr;
  if (changed) postImageChanged();
}

std::string Photo::fileName(std::int64_t version) const {
  return fmt::format("{}-{}.jpg", photoID, version);
}

void Photo::postImageChanged() const {
  if (const auto rink = rinkData.lock()) {
    rink->postNotification(kPhotoImageChanged, {{std::string(kPhotoIDKey), photoID}});
  }
}

}  // namespace tarvel
