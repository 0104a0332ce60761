#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "platform/qt/QtImage.h"
#include "ui/RinkImage.h"

namespace tarvel {
namespace {

TEST(RinkImage, IsPlacedWholeCentredAndNeverEnlarged) {
  const struct {
    const char* name;
    Size picture;
    Rect box;
    Rect place;
  } cases[] = {
      {"smaller", {40, 20}, {10, 10, 100, 100}, {40, 50, 40, 20}},
      {"as large", {100, 100}, {0, 0, 100, 100}, {0, 0, 100, 100}},
      {"wider", {400, 100}, {0, 0, 100, 100}, {0, 37.5, 100, 25}},
      {"taller", {100, 300}, {5, 5, 90, 90}, {35, 5, 30, 90}},
      {"rounded down", {300, 200}, {0, 0, 100, 100}, {0, 17, 100, 66}},
      {"a line that would vanish", {1000, 1}, {0, 0, 100, 100}, {0, 50, 100, 0}},
      {"nothing", {0, 10}, {0, 0, 100, 100}, {}},
      {"no room", {10, 10}, {3, 3, 0, 9}, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(imagePlace(c.picture, c.box), c.place) << c.name;
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
