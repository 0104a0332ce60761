#pragma once
#include <string>

#include "platform/ImageDecoder.h"

namespace tarvel {

/// Pictures of the format "IMG width height", text after which is passed over.
class FakeImageDecoder : public ImageDecoder {
 public:
  /// A file that `decode` takes; the label tells pictures of one size apart.
  static Bytes file(int width, int height, const std::string& label = {});
  std::shared_ptr<const Image> decode(ByteView file) override;
};

}  // namespace tarvel
