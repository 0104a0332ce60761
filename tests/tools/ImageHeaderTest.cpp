#include "publish/ImageHeader.h"

#include <gtest/gtest.h>

#include "SampleInput.h"

namespace tarvel::publish {
namespace {

TEST(ImageHeader, ReadsSizesOfBothFormats) {
  const auto png = readImageHeader(pngImage(70000, 3));
  ASSERT_TRUE(png);
  EXPECT_EQ(png->format, ImageFormat::png);
  EXPECT_EQ(png->width, 70000);
  EXPECT_EQ(png->height, 3);
  const auto jpeg = readImageHeader(jpegImage(1600, 1067));
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(jpeg->format, ImageFormat::jpeg);
  EXPECT_EQ(jpeg->width, 1600);
  EXPECT_EQ(jpeg->height, 1067);
}

TEST(ImageHeader, PassesOverWhatIsNoFrameHeader) {
  // A Huffman table, whose marker lies among those of the frames, and a marker without a segment stand before
  // it.
  Bytes jpeg = {0xFF, 0xD8, 0xFF, 0xC4, 0, 9, 0xFF, 0xC0, 0, 8, 8, 0, 1, 0xFF, 0x01};
  const Bytes rest = jpegImage(20, 10);
  jpeg.insert(jpeg.end(), rest.begin() + 2, rest.end());
  const auto header = readImageHeader(jpeg);
  ASSERT_TRUE(header);
  EXPECT_EQ(header->width, 20);
  EXPECT_EQ(header->height, 10);
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
