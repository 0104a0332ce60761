#include "simulation/ports/FakeImageDecoder.h"

#include <cstdio>

namespace tarvel {

namespace {
struct FakeImage : Image {
  explicit FakeImage(Size pixels) : size(pixels) {}
  Size pixelSize() const override { return size; }
  Size size;
};
}  // namespace

Bytes FakeImageDecoder::file(int width, int height, const std::string& label) {
  const std::string text = "IMG " + std::to_string(width) + " " + std::to_string(height) + " " + label;
  return Bytes(text.begin(), text.end());
}

std::shared_ptr<const Image> FakeImageDecoder::decode(ByteView file) {
  constexpr int kLargestSide = 16'384;
  const std::string text(file.begin(), file.end());
  int width = 0, height = 0;
  if (std::sscanf(text.c_str(), "IMG %6d %6d", &width, &height) != 2) return nullptr;
  if (width < 1 || height < 1 || width > kLargestSide || height > kLargestSide) return nullptr;
  return std::make_shared<FakeImage>(Size{double(width), double(height)});
}

}  // namespace tarvel
