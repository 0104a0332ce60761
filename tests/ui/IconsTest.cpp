#include "ui/Icons.h"

#include <gtest/gtest.h>

#include <QImage>

namespace tarvel {
namespace {

constexpr const char* kNames[] = {"calendar",      "caution",     "checkmark-circle",     "chevron-left",
                                  "chevron-right", "close",       "exclamation-triangle", "gear",
                                  "refresh",       "sidebar-left"};

int inkedPixels(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 0;
  }
  return count;
}

TEST(Icons, TakeTheColourGivenAndNothingElse) {
  for (const char* name : kNames) {
    for (const double ratio : {1.0, 2.0}) {
      const QPixmap pixmap = icon(name, QColor(200, 40, 10), 24.0, ratio);
      EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(24, 24)) << name;
      const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
      EXPECT_EQ(image.width(), static_cast<int>(24 * ratio)) << name;
      EXPECT_GT(inkedPixels(image), 20) << name;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          if (image.pixelColor(x, y).alpha() < 250) continue;
          EXPECT_EQ(image.pixelColor(x, y).rgb(), QColor(200, 40, 10).rgb()) << name;
        }
      }
      // Clear of the edge, so that nothing of the drawing is cut.
      for (int i = 0; i < image.width(); ++i) {
        EXPECT_EQ(image.pixelColor(i, 0).alpha() + image.pixelColor(0, i).alpha() +
                      image.pixelColor(i, image.height() - 1).alpha() +
                      image.pixelColor(image.width() - 1, i).alpha(),
                  0)
            << name;
      }
    }
  }
}

TEST(Icons, ServeButtonsAndTheApplication) {
  const QIcon button = buttonIcon("gear", Qt::black, 20.0);
  EXPECT_FALSE(button.pixmap(20, QIcon::Normal).isNull());
  EXPECT_NE(button.pixmap(20, QIcon::Normal).toImage(), button.pixmap(20, QIcon::Disabled).toImage());
  EXPECT_FALSE(applicationIcon().pixmap(64).isNull());
}

TEST(IconsDeathTest, AnUnknownNameStopsTheProgram) {
  EXPECT_DEATH(icon("no-such-icon", Qt::black, 24.0, 1.0), "Fatal error");
}

}  // namespace
}  // namespace tarvel
