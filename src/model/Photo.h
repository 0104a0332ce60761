#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/DataDecoder.h"
#include "foundation/InstanceCounter.h"
#include "model/DownloadStatus.h"
#include "platform/Geometry.h"
#include "platform/ImageDecoder.h"
#include "platform/Instant.h"

namespace tarvel {

class RinkData;

/// One rendition of a photo.
struct ImageVersion {
  Size size;                  ///< pixels, as the server says
  std::int64_t fileSize = 0;  ///< bytes
  Instant fileDate;           ///< the date that the file must have
  friend bool operator==(const ImageVersion&, const ImageVersion&) = default;
};

/// Reads a count and that many versions.
std::vector<ImageVersion> decodeImageVersions(DataDecoder& decoder);

/// What is at hand of one rendition.
struct VersionCacheEntry {
  std::shared_ptr<const Image> image;
  DownloadStatus downloadStatus;
};

struct ChosenVersion {
  std::int64_t version = 0;  ///< counted from 1
  Size size;                 ///< pixels
};

/// A photo of a rink: its texts, its renditions in ascending size as the server lists them, and the images of
/// those that are at hand. Views count themselves in and out, so that the images of what nothing shows can be
/// given up. It outlives its rink where a view or a download still holds it, and then only shows what it has.
/// Main thread.
class Photo : public std::enable_shared_from_this<Photo>, Counted<Photo> {
 public:
  using Counted<Photo>::liveCount;
  /// How long the images stay after the last view has let go. Seconds.
  static constexpr double kImageLifetime = 1800.0;

  std::int64_t photoID = 0;
  std::string title;
  std::string descr;
  std::vector<ImageVersion> versions;
  std::weak_ptr<RinkData> rinkData;
  std::vector<VersionCacheEntry> versionCache;  ///< grows by need; the first is of version 1
  std::int64_t viewCount = 0;                   ///< views on show that show the photo
  std::optional<Instant> cacheExpiration;       ///< none while it is shown, and if it never was

  /// The first version that fills a box of `box` points at `resolution` dots per inch, or the largest; none
  /// of a photo without versions.
  std::optional<ChosenVersion> chooseVersion(Size box, Size resolution) const;
  /// The pixel size of the first version that is at least `height` points high, or of the largest.
  std::optional<Size> fitHeight(double height, Size resolution) const;

  /// The image of that version, from memory or from the stored file. If it isn't at hand it is requested, and
  /// a neighbouring version's image, or null, is given meanwhile; "photo image changed" follows. Returns at
  /// once. A version that the photo lacks stops the program.
  std::shared_ptr<const Image> image(std::int64_t version);
  /// The image in a file of that version; null if it is none. One that is larger than the server says is
  /// scaled down to that.
  std::shared_ptr<const Image> decode(ByteView file, std::int64_t version, ImageDecoder& decoder) const;
  DownloadStatus downloadStatus(std::int64_t version) const;
  /// Both post "photo image changed".
  void setImage(std::shared_ptr<const Image> image, std::int64_t version);
  void setDownloadStatus(const DownloadStatus& status, std::int64_t version);

  /// One more view shows the photo.
  void addView();
  /// One view less; after the last the images have `kImageLifetime` left from `now` on.
  void removeView(Instant now);
  /// Drops the images if their time is over at `now`.
  void releaseImages(Instant now);
  /// For a refresh: what failed may be asked for again, and the image of a stored file that is no longer the
  /// promised one is dropped. `isStored` tells which of the photo's file names exist.
  template <class IsStored>
  void forgetOutdated(const IsStored& isStored) {
    bool changed = false;
    for (std::size_t i = 0; i < versions.size(); ++i) {
      const auto version = static_cast<std::int64_t>(i) + 1;
      if (!resetStatus(version) || !isStored(fileName(version))) continue;
      if (isCurrent(version)) continue;
      if (i < versionCache.size()) versionCache[i].image = nullptr;
      changed = true;
    }
    if (changed) postImageChanged();
  }

  /// Such as "123-2.jpg".
  std::string fileName(std::int64_t version) const;

 private:
  VersionCacheEntry& entry(std::int64_t version);
  const ImageVersion& record(std::int64_t version) const;
  /// False while a download is under way.
  bool resetStatus(std::int64_t version);
  bool isCurrent(std::int64_t version) const;
  std::shared_ptr<const Image> loadStored(std::int64_t version) const;
  std::shared_ptr<const Image> neighbourOf(std::int64_t version) const;
  void postImageChanged() const;
};

using PhotoList = std::vector<std::shared_ptr<Photo>>;

}  // namespace tarvel
