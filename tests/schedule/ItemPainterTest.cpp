#include "schedule/ItemPainter.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "schedule/DevicePixels.h"

namespace tarvel {
namespace {

const TextAttributes kSmallText{6.75, FontWeight::regular, kBlack, kCentredStyle};
constexpr double kLift = 0.9;

/// The device pixels of ink of a word that stands in a bar, where the bar's frame leaves any to see.
int inkOfWord(const Rect& bar, double scale) {
  QImage image(static_cast<int>(60 * scale), static_cast<int>(40 * scale), QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDevicePixelRatio(scale);
  QPainter painter(&image);
  {
    const ItemClip clip(painter, bar);
    paintItemText(painter, bar, AttributedText("Resurface", kSmallText), kLift);
  }
  DevicePixels(painter).frame(bar, 1.0, Qt::white);
  int ink = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ink += qGray(image.pixel(x, y)) < 128;
  }
  return ink;
}

TEST(ItemPainter, aBarLowerThanALineShowsItsLettersWhole) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    const int whole = inkOfWord({2, 2, 56, 30}, scale);
    ASSERT_GT(whole, 0);
    // An f reaches a little above the capitals.
    for (const double y : {10.0, 10.2, 10.4, 10.6, 10.8})
      EXPECT_GT(inkOfWord({2, y, 56, 6.6}, scale), 0.95 * whole) << scale << " " << y;
  }
}

}  // namespace
}  // namespace tarvel
