#pragma once
#include "model/Photo.h"
#include "platform/Clock.h"

namespace tarvel {

/// The photos that one view shows. While the view is on show it counts as a view of each of them. Owned by
/// the view; main thread.
class ShownPhotos {
 public:
  /// Not on show yet. The clock outlives it.
  explicit ShownPhotos(const Clock& clock) : clock_(clock) {}
  ~ShownPhotos() { setShown(false); }
  ShownPhotos(const ShownPhotos&) = delete;
  ShownPhotos& operator=(const ShownPhotos&) = delete;

  /// Null entries are fine. A photo in both the old and the new list stays counted throughout.
  void setPhotos(PhotoList photos);
  const PhotoList& photos() const { return photos_; }
  void setShown(bool shown);
  bool isShown() const { return isShown_; }

 private:
  const Clock& clock_;
  PhotoList photos_;
  bool isShown_ = false;
};

}  // namespace tarvel
