#include "ui/Icons.h"

#include <gtest/gtest.h>

#include "Painted.h"

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

}  // namespace
}  // namespace tarvel
