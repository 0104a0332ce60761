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

/// Where the image has been drawn.
QRect placeOf(const QImage& image) {
  QRect place;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == kGreen) place |= QRect(x, y, 1, 1);
    }
  }
  return place;
}

TEST(ImageDisplayView, imageIsWholeCentredAndNeverEnlarged) {
  struct Case {
    QSize image;
    QRect place;
  };
  const Case cases[] = {
      {{40, 20}, {30, 20, 40, 20}},   // smaller than the view
      {{100, 60}, {0, 0, 100, 60}},   //
      {{200, 60}, {0, 15, 100, 30}},  // too wide
      {{50, 120}, {37, 0, 25, 60}},   // too high; the half point goes to the left
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.image.width() << " x " << c.image.height());
    ImageDisplayView view;
    view.resize(100, 60);
    view.setImageProvider([&] { return picture(c.image.width(), c.image.height()); });
    const QRect place = placeOf(test::painted(view));
    EXPECT_NEAR(place.x(), c.place.x(), 1);
    EXPECT_EQ(place.y(), c.place.y());
    EXPECT_NEAR(place.width(), c.place.width(), 1);
    EXPECT_EQ(place.height(), c.place.height());
  }
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
