#pragma once
#include <memory>

#include "foundation/InstanceCounter.h"
#include "model/RinkRecord.h"
#include "platform/ImageDecoder.h"

namespace tarvel {

class LogoStore;

enum class LogoKind { normal, dark };

/// A rink of the catalogue. Owned by `DataModel::rinkList`; main thread.
class RinkInfo : public RinkRecord, Counted<RinkInfo> {
 public:
  using Counted<RinkInfo>::liveCount;

  /// The store outlives the object.
  RinkInfo(RinkRecord record, LogoStore& logos) : RinkRecord(std::move(record)), logos_(logos) {}

  /// The logo for light, and for dark surroundings; null while it isn't at hand (it is then requested, and
  /// "rink logo changed" follows) and for a rink that has none.
  std::shared_ptr<const Image> logoImage();
  std::shared_ptr<const Image> darkLogoImage();

  std::shared_ptr<const Image> cachedLogoImage;
  std::shared_ptr<const Image> cachedDarkLogoImage;

 private:
  LogoStore& logos_;
};

}  // namespace tarvel
