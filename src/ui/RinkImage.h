#pragma once
#include "platform/Geometry.h"
#include "platform/ImageDecoder.h"

class QPainter;

namespace tarvel {

/// The place of a picture in a box: whole, in its proportions, never larger than it is, in whole pixels,
/// centred.
Rect imagePlace(Size picture, const Rect& box);
/// Draws the picture in that place and returns it. Scaled pictures are kept for the next drawing while there
/// is room. A picture that this side didn't decode draws nothing and gives an empty rectangle.
Rect drawImage(QPainter& painter, const Image& image, const Rect& box);
/// Draws the whole picture so that it fills the rectangle, also enlarged, on whole device pixels. One of
/// quite other proportions isn't distorted: it is fitted into the rectangle.
void drawImageFilling(QPainter& painter, const Image& image, const Rect& rect);

}  // namespace tarvel
