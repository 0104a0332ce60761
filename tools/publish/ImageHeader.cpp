#include "ImageHeader.h"

#include <algorithm>
#include <array>

namespace tarvel::publish {
namespace {

std::uint32_t bigEndian(ByteView bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = (value << 8) | bytes[at + i];
  return value;
}

std::optional<ImageHeader> header(ImageFormat format, std::uint32_t width, std::uint32_t height) {
  constexpr std::uint32_t kLargest = 0x7FFFFFFF;
  if (width == 0 || height == 0 || width > kLargest || height > kLargest) return std::nullopt;
  return ImageHeader{format, static_cast<int>(width), static_cast<int>(height)};
}

// Eight bytes of signature, then the first chunk: its length, "IHDR", width, height.
std::optional<ImageHeader> readPng(ByteView file) {
  constexpr std::array<std::uint8_t, 16> kStart = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                   0,    0,   0,   13,  'I',  'H',  'D',  'R'};
  if (file.size() < kStart.size() + 8 || !std::equal(kStart.begin(), kStart.end(), file.begin())) {
    return std::nullopt;
  }
  return header(ImageFormat::png, bigEndian(file, 16, 4), bigEndian(file, 20, 4));
}

// A frame header, among the markers C0 to CF, of which three mean something else.
bool tellsSize(std::uint8_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool standsAlone(std::uint8_t marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

// A run of segments: FF, marker, length (which counts its own two bytes), content.
std::optional<ImageHeader> readJpeg(ByteView file) {
  if (file.size() < 4 || file[0] != 0xFF || file[1] != 0xD8) return std::nullopt;
  std::size_t at = 2;
  while (at + 4 <= file.size()) {
    if (file[at] != 0xFF) return std::nullopt;
    const std::uint8_t marker = file[at + 1];
    if (marker == 0xFF) {  // padding
      ++at;
      continue;
    }
    at += 2;
    if (standsAlone(marker)) continue;
    if (marker == 0xD9 || marker == 0xDA) return std::nullopt;
    const std::uint32_t length = bigEndian(file, at, 2);
    if (length < 2) return std::nullopt;
    if (tellsSize(marker)) {
      if (length < 7 || at + 7 > file.size()) return std::nullopt;
      return header(ImageFormat::jpeg, bigEndian(file, at + 5, 2), bigEndian(file, at + 3, 2));
    }
    at += length;
  }
  return std::nullopt;
}

}  // namespace

std::optional<ImageHeader> readImageHeader(ByteView file) {
  if (auto png = readPng(file)) return png;
  return readJpeg(file);
}

}  // namespace tarvel::publish
