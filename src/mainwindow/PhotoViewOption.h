#pragma once

namespace tarvel {

/// What the photos' pane shows: an album's cover each, an album's photos, or one photo.
enum class PhotoViewOption { gallery, album, single };

}  // namespace tarvel
