#pragma once
#include <memory>

#include "platform/Bytes.h"
#include "platform/Geometry.h"

namespace tarvel {

/// A decoded picture. The core holds it and hands it on; only the toolkit's side looks inside.
class Image {
 public:
  virtual ~Image() = default;
  /// In pixels of the picture itself.
  virtual Size pixelSize() const = 0;
};

class ImageDecoder {
 public:
  virtual ~ImageDecoder() = default;
  /// Decodes a PNG or JPEG file; null if it is none, is damaged, or is larger than 16,384 pixels either way
  /// or 128 MiB decoded. Main thread.
  virtual std::shared_ptr<const Image> decode(ByteView file) = 0;
  /// The same for a picture that is wanted in `largest` pixels at most, which are 1 or more either way: one
  /// that turns out larger is scaled down to fit, in its proportions, where the decoder can do that.
  virtual std::shared_ptr<const Image> decodeWithin(ByteView file, Size /*largest*/) { return decode(file); }
};

}  // namespace tarvel
