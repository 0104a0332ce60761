#include <gtest/gtest.h>

#include <QPainter>

#include "Painted.h"
#include "platform/qt/QtImage.h"
#include "ui/Icons.h"
#include "ui/ImageDisplayView.h"
#include "ui/RinkImage.h"

namespace tarvel {
namespace {

constexpr const char* kNames[] = {"calendar",      "caution",     "checkmark-circle",     "chevron-left",
                                  "chevron-right", "close",       "exclamation-triangle", "gear",
                                  "refresh",       "sidebar-left"};

TEST(Icons, TakeTheColourGivenAndNothingElse) {
  for (const char* name : kNames) {
    for (const double ratio : {1.0, 2.0}) {
      const QPixmap pixmap = icon(name, QColor(200, 40, 10), 24.0, ratio);
      EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(24, 24)) << name;
      const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
      EXPECT_EQ(image.width(), static_cast<int>(24 * ratio)) << name;
      int opaque = 0;
      const QRect ink = test::inkOf(image, [&](const QColor& pixel) {
        EXPECT_TRUE(pixel.alpha() < 250 || pixel.rgb() == QColor(200, 40, 10).rgb()) << name;
        opaque += pixel.alpha() > 0;
        return pixel.alpha() > 0;
      });
      EXPECT_GT(opaque, 20) << name;
      EXPECT_TRUE(image.rect().adjusted(1, 1, -1, -1).contains(ink)) << name << " is cut at the edge";
    }
  }
}

TEST(IconsDeathTest, AnUnknownNameStopsTheProgram) {
  EXPECT_DEATH(icon("no-such-icon", Qt::black, 24.0, 1.0), "Fatal error");
}

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

TEST(RinkImage, IsPlacedWholeCentredAndNeverEnlarged) {
  const std::tuple<const char*, Size, Rect, Rect> cases[] = {
      {"smaller", {40, 20}, {10, 10, 100, 100}, {40, 50, 40, 20}},
      {"as large", {100, 100}, {0, 0, 100, 100}, {0, 0, 100, 100}},
      {"wider", {400, 100}, {0, 0, 100, 100}, {0, 37.5, 100, 25}},
      {"taller", {100, 300}, {5, 5, 90, 90}, {35, 5, 30, 90}},
      {"rounded down", {300, 200}, {0, 0, 100, 100}, {0, 17, 100, 66}},
      {"a line that would vanish", {1000, 1}, {0, 0, 100, 100}, {0, 50, 100, 0}},
      {"nothing", {0, 10}, {0, 0, 100, 100}, {}},
      {"no room", {10, 10}, {3, 3, 0, 9}, {}},
  };
  for (const auto& [name, size, box, place] : cases) EXPECT_EQ(imagePlace(size, box), place) << name;
}

TEST(RinkImage, DrawsItsPixelsInItsPlace) {
  QImage picture(80, 80, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  const QtImage image(picture);
  for (const double ratio : {1.0, 2.0}) {
    QImage canvas(static_cast<int>(60 * ratio), static_cast<int>(40 * ratio), QImage::Format_RGB32);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    EXPECT_EQ(drawImage(painter, image, {0, 0, 60, 40}), (Rect{10, 0, 40, 40}));
    painter.end();
    const auto at = [&](double x, double y) {
      return canvas.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
    };
    EXPECT_EQ(at(9, 20), QColor(Qt::white));
    EXPECT_EQ(at(11, 1), QColor(Qt::blue));
    EXPECT_EQ(at(48, 38), QColor(Qt::blue));
    EXPECT_EQ(at(51, 20), QColor(Qt::white));
  }
}

}  // namespace
}  // namespace tarvel
