#pragma once
#include <memory>

#include "model/Photo.h"
#include "model/PhotoAlbum.h"

namespace tarvel {

/// What the views of the photos' pane ask of whoever moves between them. Main thread; outlives the views.
class PhotosViewOwner {
 public:
  virtual ~PhotosViewOwner() = default;
  virtual void showAlbum(const std::shared_ptr<const PhotoAlbum>& album) = 0;
  virtual void showPhoto(const std::shared_ptr<Photo>& photo) = 0;
  /// From a photo to its album, and from there to the gallery.
  virtual void back() = 0;
};

}  // namespace tarvel
