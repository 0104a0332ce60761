#pragma once
#include "platform/ImageDecoder.h"
#include "publish/ImageHeader.h"

namespace tarvel::reliability {

/// Takes a picture by its header alone: enough for the store, which keeps files and draws none.
class PhotoHeaders : public ImageDecoder {
 public:
  std::shared_ptr<const Image> decode(ByteView file) override {
    const auto header = publish::readImageHeader(file);
    if (!header) return nullptr;
    return std::make_shared<HeaderOnly>(
        Size{static_cast<double>(header->width), static_cast<double>(header->height)});
  }

 private:
  struct HeaderOnly : Image {
    explicit HeaderOnly(Size pixels) : size(pixels) {}
    Size pixelSize() const override { return size; }
    Size size;
  };
};

}  // namespace tarvel::reliability
