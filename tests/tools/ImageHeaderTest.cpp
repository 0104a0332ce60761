#include "publish/ImageHeader.h"

#include <gtest/gtest.h>

#include <tuple>

#include "SampleInput.h"

namespace tarvel::publish {
namespace {

TEST(ImageHeader, ReadsSizesOfBothFormats) {
  // A Huffman table, whose marker lies among those of the frames, and a marker without a segment stand before
  // the frame's header.
  Bytes more = {0xFF, 0xD8, 0xFF, 0xC4, 0, 9, 0xFF, 0xC0, 0, 8, 8, 0, 1, 0xFF, 0x01};
  const Bytes rest = jpegImage(20, 10);
  more.insert(more.end(), rest.begin() + 2, rest.end());
  const std::tuple<Bytes, ImageFormat, int, int> cases[] = {
      {pngImage(70000, 3), ImageFormat::png, 70000, 3},
      {jpegImage(1600, 1067), ImageFormat::jpeg, 1600, 1067},
      {more, ImageFormat::jpeg, 20, 10}};
  for (const auto& [image, format, width, height] : cases) {
    const auto header = readImageHeader(image);
    ASSERT_TRUE(header) << width;
    EXPECT_EQ(std::tie(header->format, header->width, header->height), std::tie(format, width, height));
  }
}

TEST(ImageHeader, RefusesEveryCutAndEmptySizes) {
  for (const Bytes& image : {pngImage(8, 8), jpegImage(8, 8)}) {
    const std::size_t lastNeeded = image[0] == 0x89 ? image.size() : image.size() - 1;
    for (std::size_t length = 0; length < lastNeeded; ++length) {
      EXPECT_FALSE(readImageHeader(ByteView(image).first(length))) << length;
    }
  }
  EXPECT_FALSE(readImageHeader(pngImage(0, 8)));
  EXPECT_FALSE(readImageHeader(jpegImage(8, 0)));
  EXPECT_FALSE(readImageHeader(Bytes{'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0, 0}));
  // The picture's data begin before any frame header.
  EXPECT_FALSE(
      readImageHeader(Bytes{0xFF, 0xD8, 0xFF, 0xDA, 0, 4, 1, 2, 0xFF, 0xC0, 0, 8, 8, 0, 1, 0, 1, 3}));
}

}  // namespace
}  // namespace tarvel::publish
