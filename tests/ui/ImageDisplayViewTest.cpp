#include "ui/ImageDisplayView.h"

#include <gtest/gtest.h>

#include "Painted.h"
#include "platform/qt/QtImage.h"

namespace tarvel {
namespace {

using test::kUntouched;

const QColor kGreen(0, 160, 0);
const QColor kRed(200, 0, 0);

std::shared_ptr<const Image> picture(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(kGreen);
  // The drawn size goes by the pixels, whatever the file says about dots per inch.
  image.setDotsPerMeterX(11'811);
  image.setDotsPerMeterY(11'811);
  return std::make_shared<QtImage>(image);
}

QRect placeOf(const QImage& image) {
  return test::inkOf(image, [](const QColor& pixel) { return pixel == kGreen; });
}

TEST(ImageDisplayView, imageIsWholeAndCentred) {
  ImageDisplayView view;
  view.resize(100, 60);
  view.setImageProvider([&] { return picture(200, 60); });
  EXPECT_EQ(placeOf(test::painted(view)), QRect(0, 15, 100, 30));
}

TEST(ImageDisplayView, asksForTheImageAtEachDrawing) {
  ImageDisplayView view;
  view.resize(50, 50);
  std::shared_ptr<const Image> current;
  int asked = 0;
  view.setImageProvider([&] {
    ++asked;
    return current;
  });
  EXPECT_TRUE(placeOf(test::painted(view)).isEmpty());
  current = picture(10, 10);
  EXPECT_EQ(placeOf(test::painted(view)), QRect(20, 20, 10, 10));
  EXPECT_EQ(asked, 2);
  view.setImageProvider({});
  EXPECT_TRUE(placeOf(test::painted(view)).isEmpty());
  EXPECT_EQ(asked, 2);
}

TEST(ImageDisplayView, frameStandsWithOrWithoutAnImage) {
  ImageDisplayView view;
  view.resize(50, 50);
  view.setFrameColor(kRed);
  const QImage image = test::painted(view);
  EXPECT_EQ(image.pixelColor(0, 25), kRed);
  EXPECT_EQ(image.pixelColor(49, 49), kRed);
  EXPECT_EQ(image.pixelColor(1, 25), kUntouched);
}

}  // namespace
}  // namespace tarvel
