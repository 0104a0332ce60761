#pragma once
#include <optional>

#include "platform/Bytes.h"

namespace tarvel::publish {

enum class ImageFormat { png, jpeg };

struct ImageHeader {
  ImageFormat format = ImageFormat::png;
  int width = 0;  ///< pixels, 1 or more
  int height = 0;
};

/// What the first bytes of a PNG or JPEG file say of it; none for anything else, and for a file that ends
/// before it has told its size. The picture itself is not decoded.
std::optional<ImageHeader> readImageHeader(ByteView file);

}  // namespace tarvel::publish
