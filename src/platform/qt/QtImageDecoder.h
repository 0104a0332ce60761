#pragma once
#include "platform/ImageDecoder.h"

namespace tarvel {

/// Decodes with Qt's readers. The pictures it gives are `QtImage`s, turned upright if the file says how it
/// was held.
class QtImageDecoder final : public ImageDecoder {
 public:
  std::shared_ptr<const Image> decode(ByteView file) override;
  std::shared_ptr<const Image> decodeWithin(ByteView file, Size largest) override;
};

}  // namespace tarvel
