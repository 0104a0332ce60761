#pragma once
#include <string>

#include "platform/ImageDecoder.h"

namespace tarvel {

/// A picture of the format "IMG width height", text after which is passed over.
class FakeImage : public Image {
 public:
  FakeImage(Size size, Bytes file) : size_(size), file_(std::move(file)) {}
  Size pixelSize() const override { return size_; }
  const Bytes& file() const { return file_; }

 private:
  Size size_;
  Bytes file_;
};

class FakeImageDecoder : public ImageDecoder {
 public:
  /// A file that `decode` takes; the label tells pictures of one size apart.
  static Bytes file(int width, int height, const std::string& label = {});
  std::shared_ptr<const Image> decode(ByteView file) override;
  int decodeCount() const { return decodeCount_; }

 private:
  int decodeCount_ = 0;
};

}  // namespace tarvel
