#pragma once
#include <string_view>

#include "model/Photo.h"
#include "ui/AttributedText.h"

class QPainter;
class QWidget;

namespace tarvel {

/// How a photo without an image shows itself.
struct PhotoPlaceholder {
  enum class Frame { picture, box };
  Frame frame = Frame::picture;  ///< what the thin line goes around
  double margin = 0.0;           ///< of the message, at either side
  TextAttributes message;
  std::string_view textWithoutPhoto = "No Image";
};

/// The dots per inch of the screen that the view is on.
Size screenResolution(const QWidget& view);
/// Draws the photo in the middle of the box, whole and never enlarged: the version that the box and the
/// screen ask for, or a neighbour of it stretched to the same place while that is on its way, or a frame with
/// the reason why there is none. Drawing is what has a version fetched and decoded. The photo may be null.
void drawPhoto(QPainter& painter, Photo* photo, const Rect& box, Size resolution,
               const PhotoPlaceholder& placeholder, const QWidget& view);

}  // namespace tarvel
