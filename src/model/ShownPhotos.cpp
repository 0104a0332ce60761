#include "model/ShownPhotos.h"

#include <utility>

namespace tarvel {

namespace {

void countIn(const PhotoList& photos) {
  for (const auto& photo : photos) {
    if (photo) photo->addView();
  }
}

void countOut(const PhotoList& photos, Instant now) {
  for (const auto& photo : photos) {
    if (photo) photo->removeView(now);
  }
}

}  // namespace

void ShownPhotos::setPhotos(PhotoList photos) {
  const PhotoList old = std::exchange(photos_, std::move(photos));
  if (!isShown_) return;
  countIn(photos_);
  countOut(old, clock_.now());
}

void ShownPhotos::setShown(bool shown) {
  if (std::exchange(isShown_, shown) == shown) return;
  shown ? countIn(photos_) : countOut(photos_, clock_.now());
}

}  // namespace tarvel
