#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <string>

#include "ui/AttributedText.h"

namespace tarvel {
namespace {

const TextAttributes kRed{12.0, FontWeight::regular, QColor(Qt::red)};

QImage drawn(const AttributedText& text, const Rect& rect, TextFit fit,
             Appearance appearance = Appearance::light) {
  QImage image(300, 120, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  draw(painter, rect, text, fit, appearance);
  return image;
}
QImage drawn(std::string_view text, const Rect& rect, TextFit fit, const TextAttributes& attributes = kRed) {
  return drawn(AttributedText(text, attributes), rect, fit);
}

/// The smallest rectangle with all that isn't white.
QRect inked(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != qRgb(255, 255, 255)) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

TEST(AttributedTextDrawing, StandsWhereItsAlignmentPutsIt) {
  const double width = boundingRect(AttributedText("Hockey", kRed), {}, TextFit::wrap).width;
  const Rect box{50, 20, 200, 40};
  const struct {
    TextAlignment alignment;
    double left;
  } cases[] = {{TextAlignment::left, 50},
               {TextAlignment::centred, 50 + (200 - width) / 2},
               {TextAlignment::right, 250 - width}};
  for (const auto& c : cases) {
    for (const char* text : {"Hockey", "הוקי קר"}) {
      TextAttributes attributes = kRed;
      attributes.paragraph.alignment = c.alignment;
      const QRect ink = inked(drawn(text, box, TextFit::wrap, attributes));
      const double own = boundingRect(AttributedText(text, attributes), {}, TextFit::wrap).width;
      const double shift = c.alignment == TextAlignment::left    ? 0.0
                           : c.alignment == TextAlignment::right ? width - own
                                                                 : (width - own) / 2;
      EXPECT_NEAR(ink.left(), c.left + shift, 2.5) << text;
      EXPECT_GE(ink.top(), 20);
      EXPECT_LE(ink.bottom(), 20 + 16);
    }
  }
}

TEST(AttributedTextDrawing, StaysWithinTheRoomMeasured) {
  const std::string text = "Public skating, freestyle and the learn-to-skate school share this hour";
  for (const double width : {60.0, 90.0, 180.0}) {
    for (const double height : {20.0, 40.0, 90.0}) {
      const Size size = boundingRect(AttributedText(text, kRed), {width, height}, TextFit::wrapAndTruncate);
      const QRect ink = inked(drawn(text, {10, 10, width, size.height}, TextFit::wrapAndTruncate));
      EXPECT_TRUE(QRectF(9, 10, width + 2, size.height).contains(QRectF(ink))) << width << "x" << height;
    }
  }
}

TEST(AttributedTextDrawing, AnEllipsisTellsOfWhatIsLeftOutAndOfNothingElse) {
  const double line = boundingRect(AttributedText("x", kRed), {}, TextFit::wrap).height;
  const struct {
    const char* name;
    std::string text;
    std::string shown;  // what is drawn in one line 200 wide must look like this
  } cases[] = {
      {"all fits", "Hockey", "Hockey"},
      {"a second line is left out", "Hockey\nGame", "Hockey…"},
      {"only blanks are left out", "Hockey\n  \n", "Hockey"},
      {"blanks before the ellipsis go", "Hockey   \nGame", "Hockey…"},
      {"an empty first line", "\nGame", "…"},
      {"right to left", "הוקי\nמשחק", "הוקי…"},
      {"combining signs stay whole", "e\u0301e\u0301\nx", "e\u0301e\u0301…"},
  };
  for (const auto& c : cases) {
    const Rect box{10, 10, 200, line};
    EXPECT_EQ(drawn(c.text, box, TextFit::wrapAndTruncate), drawn(c.shown, box, TextFit::wrap)) << c.name;
    EXPECT_EQ(drawn(c.text, {10, 10, 200, 0}, TextFit::wrapAndTruncate),
              drawn(c.text, {10, 10, 200, 0}, TextFit::wrap))
        << c.name;
  }
}

TEST(AttributedTextDrawing, ATruncatedLineIsFilledUpToTheWidth) {
  const std::string text = "Skating internationalisation";
  const double line = boundingRect(AttributedText("x", kRed), {}, TextFit::wrap).height;
  const double whole = boundingRect(AttributedText(text, kRed), {}, TextFit::wrap).width;
  const QRect ink = inked(drawn(text, {0, 0, whole - 10, line}, TextFit::wrapAndTruncate));
  EXPECT_GT(ink.right(), whole - 30);
  EXPECT_LE(ink.right(), whole - 10);
  // No room for anything: the ellipsis alone.
  EXPECT_EQ(drawn(text, {0, 0, 3, line}, TextFit::wrapAndTruncate),
            drawn("…", {0, 0, 3, line}, TextFit::wrap));
}

TEST(AttributedTextDrawing, TakesTheColoursOfTheAppearance) {
  const auto strongest = [](const QImage& image) {
    QColor found = Qt::white;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (contrastRatio(pixel, Qt::white) > contrastRatio(found, Qt::white)) found = pixel;
      }
    }
    return found;
  };
  const Rect box{10, 10, 200, 60};
  AttributedText one("MMMM", {40.0, FontWeight::bold, kSystemRed});
  EXPECT_EQ(strongest(drawn(one, box, TextFit::wrap, Appearance::light)),
            color(kSystemRed, Appearance::light));
  EXPECT_EQ(strongest(drawn(one, box, TextFit::wrap, Appearance::dark)), color(kSystemRed, Appearance::dark));
  AttributedText two = one;
  two.append("MM", {40.0, FontWeight::bold, kLabel});
  EXPECT_EQ(strongest(drawn(two, box, TextFit::wrap, Appearance::light)), color(kLabel, Appearance::light));
  EXPECT_EQ(strongest(drawn(two, box, TextFit::wrap, Appearance::dark)), color(kSystemRed, Appearance::dark));
}

}  // namespace
}  // namespace tarvel
