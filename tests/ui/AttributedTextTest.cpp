#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QPainter>
#include <string>

#include "Painted.h"
#include "ui/AttributedText.h"
#include "ui/TextCache.h"
#include "ui/TextLayout.h"

namespace tarvel {
namespace {

const TextAttributes kPlain{12.0};
const std::string kLongText =
    "Public skating with music on the north sheet, skate hire at the desk until half an hour before the end";
const std::string kHebrew = "שלום עולם זה משפט ארוך שנשבר לכמה שורות כי הרוחב קטן";

Size measure(std::string_view text, Size limit, TextFit fit = TextFit::wrap,
             const TextAttributes& attributes = kPlain) {
  return boundingRect(AttributedText(text, attributes), limit, fit);
}
double lineHeight() {
  return measure("x", {}).height;
}
int lineCount(Size size) {
  return static_cast<int>(std::lround(size.height / lineHeight()));
}

TEST(AttributedText, TakesUtf8AndDropsCarriageReturns) {
  AttributedText text(
      "a\r\n\xff"
      "b",
      kPlain);
  text.append("", kPlain);
  text.append(QString(u'é'), kMessageAttributes);
  EXPECT_EQ(text.plainText(), QString("a\n\uFFFD"
                                      "bé"));
  EXPECT_EQ(text.runs().size(), 2u);
}

TEST(AttributedText, ALineTakesItsFontsRoom) {
  const QFontMetricsF metrics(kPlain.font());
  const Size size = measure("Freestyle", {});
  EXPECT_EQ(size.height, std::ceil(metrics.ascent() + metrics.descent() - 0.01));
  EXPECT_NEAR(size.width, metrics.horizontalAdvance("Freestyle"), 1.0);
  EXPECT_EQ(measure("", {100, 100}), Size{});
  TextAttributes large = kPlain;
  large.fontSize = 24.0;
  EXPECT_GT(measure("Freestyle", {}, TextFit::wrap, large).width, 1.8 * size.width);
}

TEST(AttributedText, NewlinesAndTheWidthBreakLines) {
  const std::tuple<const char*, std::string, double, int> cases[] = {
      {"one line", "abc", 0, 1},
      {"two lines", "abc\ndef", 0, 2},
      {"an empty line between", "abc\n\ndef", 0, 3},
      {"a newline at the end", "abc\n", 0, 1},
      {"newlines alone", "\n\n", 0, 2},
      {"no width at all", kLongText, 0, 1},
      {"a word wider than the room", std::string(40, 'W'), 100, 5},
  };
  for (const auto& [what, words, room, count] : cases) {
    const Size size = measure(words, {room, 0});
    if (room > 0) {
      EXPECT_GE(lineCount(size), count) << what;
      EXPECT_LE(size.width, room) << what;
    } else {
      EXPECT_EQ(lineCount(size), count) << what;
    }
  }
}

TEST(AttributedText, ParagraphStylesSpreadTheLines) {
  const auto height = [](const char* text, const ParagraphStyle& style) {
    TextAttributes attributes = kPlain;
    attributes.paragraph = style;
    return measure(text, {}, TextFit::wrap, attributes).height;
  };
  const double line = lineHeight();
  EXPECT_EQ(height("a\nb\nc", kLeftStyle), 3 * line);
  EXPECT_EQ(height("a\nb\nc", kLeftSpacing6Style), 3 * line + 12.0);
  EXPECT_EQ(height("a\nb\nc", kLeftSpacing3Style), 3 * line + 6.0);
  EXPECT_EQ(height("a\nb", kLeftLineHeight20Style), 4 * line);
  EXPECT_EQ(height("a\nb", kLeftLineHeight13Style), 2 * std::ceil(1.3 * line - 0.01));
  EXPECT_EQ(height("a", kRightStyle), line);
}

TEST(AttributedText, ALowerRoomShowsFewerLinesAndAlwaysOne) {
  const double line = lineHeight();
  const int all = lineCount(measure(kLongText, {120, 0}));
  ASSERT_GE(all, 4);
  for (const TextFit fit : {TextFit::wrap, TextFit::wrapAndTruncate}) {
    for (int lines = 1; lines <= all; ++lines) {
      EXPECT_EQ(lineCount(measure(kLongText, {120, lines * line}, fit)), lines);
      EXPECT_EQ(lineCount(measure(kLongText, {120, (lines + 1) * line - 1.0}, fit)), lines);
    }
    EXPECT_EQ(lineCount(measure(kLongText, {120, 1}, fit)), 1);
  }
}

TEST(AttributedText, WhatWasMeasuredFitsWhenItIsMeasuredInItsOwnSize) {
  const std::string texts[] = {kLongText,
                               kHebrew,
                               "a\nb\n\nc",
                               std::string(300, 'm'),
                               "שלום Stick & Puck עולם 12:30",
                               "e\u0301e\u0301e\u0301 Z\u0351\u036B\u0343algo",
                               "👨‍👩‍👧‍👦👨‍👩‍👧‍👦 family"};
  for (const std::string& text : texts) {
    for (const TextFit fit : {TextFit::wrap, TextFit::wrapAndTruncate}) {
      for (const double width : {13.0, 57.0, 140.0, 0.0}) {
        for (const double height : {0.0, 10.0, 31.0, 64.0}) {
          const Size size = measure(text, {width, height}, fit);
          EXPECT_EQ(measure(text, size, fit), size) << text << " in " << width << " x " << height;
        }
      }
    }
  }
}

TEST(AttributedText, SeveralLooksStandInOneLine) {
  AttributedText mixed("small ", kPlain);
  TextAttributes large = kPlain;
  large.fontSize = 30.0;
  mixed.append("LARGE\n", large);
  mixed.append("small", kPlain);
  const double largeLine = measure("x", {}, TextFit::wrap, large).height;
  const Size size = boundingRect(mixed, {}, TextFit::wrap);
  EXPECT_EQ(size.height, largeLine + lineHeight());
  EXPECT_NEAR(size.width, measure("small ", {}).width + measure("LARGE", {}, TextFit::wrap, large).width,
              4.0);
}

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

QRect inked(const QImage& image) {
  return test::inkOf(image, [](const QColor& pixel) { return pixel != QColor(Qt::white); });
}

TEST(AttributedTextDrawing, StandsWhereItsAlignmentPutsIt) {
  const double width = boundingRect(AttributedText("Hockey", kRed), {}, TextFit::wrap).width;
  const Rect box{50, 20, 200, 40};
  const std::pair<TextAlignment, double> cases[] = {{TextAlignment::left, 50},
                                                    {TextAlignment::centred, 50 + (200 - width) / 2},
                                                    {TextAlignment::right, 250 - width}};
  for (const auto& [alignment, edge] : cases) {
    for (const char* text : {"Hockey", "הוקי קר"}) {
      TextAttributes attributes = kRed;
      attributes.paragraph.alignment = alignment;
      const QRect ink = inked(drawn(text, box, TextFit::wrap, attributes));
      const double own = boundingRect(AttributedText(text, attributes), {}, TextFit::wrap).width;
      const double shift = alignment == TextAlignment::left    ? 0.0
                           : alignment == TextAlignment::right ? width - own
                                                               : (width - own) / 2;
      EXPECT_NEAR(ink.left(), edge + shift, 2.5) << text;
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
  // shown: what is drawn in one line 200 wide must look like this
  const std::tuple<const char*, std::string, std::string> cases[] = {
      {"all fits", "Hockey", "Hockey"},
      {"a second line is left out", "Hockey\nGame", "Hockey…"},
      {"only blanks are left out", "Hockey\n  \n", "Hockey"},
      {"blanks before the ellipsis go", "Hockey   \nGame", "Hockey…"},
      {"an empty first line", "\nGame", "…"},
      {"right to left", "הוקי\nמשחק", "הוקי…"},
      {"combining signs stay whole", "e\u0301e\u0301\nx", "e\u0301e\u0301…"},
  };
  for (const auto& [name, words, shown] : cases) {
    const Rect box{10, 10, 200, line};
    EXPECT_EQ(drawn(words, box, TextFit::wrapAndTruncate), drawn(shown, box, TextFit::wrap)) << name;
    EXPECT_EQ(drawn(words, {10, 10, 200, 0}, TextFit::wrapAndTruncate),
              drawn(words, {10, 10, 200, 0}, TextFit::wrap))
        << name;
  }
  // The line is filled up to the width.
  const std::string text = "Skating internationalisation";
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
    test::inkOf(image, [&](const QColor& pixel) {
      if (contrastRatio(pixel, Qt::white) > contrastRatio(found, Qt::white)) found = pixel;
      return false;
    });
    return found;
  };
  const Rect box{10, 10, 200, 60};
  AttributedText one("MMMM", {40.0, FontWeight::bold, kSystemRed});
  AttributedText two = one;
  two.append("MM", {40.0, FontWeight::bold, kLabel});
  for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
    EXPECT_EQ(strongest(drawn(one, box, TextFit::wrap, appearance)), color(kSystemRed, appearance));
    const bool isLight = appearance == Appearance::light;
    EXPECT_EQ(strongest(drawn(two, box, TextFit::wrap, appearance)),
              color(isLight ? kLabel : kSystemRed, appearance));
  }
}

AttributedText text(const std::string& content, const ColorSource& color = kLabel) {
  return AttributedText(content, {12.0, FontWeight::regular, color});
}

class TextCacheTest : public testing::Test {
 protected:
  std::shared_ptr<const TextLayout> get(const AttributedText& t, Size limit = {100, 50},
                                        TextFit fit = TextFit::wrap,
                                        Appearance appearance = Appearance::light) {
    return cache_.layout(t, limit, fit, appearance);
  }
  TextCache cache_;
};

TEST_F(TextCacheTest, TheSameRequestGivesTheSameLayoutAndAnyOtherAnother) {
  const auto first = get(text("a"));
  EXPECT_EQ(get(text("a")), first);
  EXPECT_NE(get(text("b")), first);
  EXPECT_NE(get(text("a"), {101, 50}), first);
  EXPECT_NE(get(text("a"), {100, 51}), first);
  EXPECT_NE(get(text("a"), {100, 50}, TextFit::wrapAndTruncate), first);
  EXPECT_NE(get(AttributedText("a", {13.0})), first);
  EXPECT_NE(get(AttributedText("a", {12.0, FontWeight::bold})), first);
  EXPECT_NE(get(AttributedText("a", {12.0, FontWeight::regular, kLabel, kRightStyle})), first);
  EXPECT_NE(get(AttributedText("a", {12.0, FontWeight::regular, kLabel, kLeftStyle, FontDesign::fixedWidth})),
            first);
}

TEST_F(TextCacheTest, OnlyTextsOfSeveralLooksDependOnTheAppearance) {
  EXPECT_EQ(get(text("a")), get(text("a"), {100, 50}, TextFit::wrap, Appearance::dark));
  AttributedText two = text("a");
  two.append("b", {12.0, FontWeight::regular, kSystemRed});
  EXPECT_NE(get(two), get(two, {100, 50}, TextFit::wrap, Appearance::dark));
}

TEST_F(TextCacheTest, KeepsTheTextsUsedLast) {
  const auto kept = get(text("kept"));
  const auto lost = get(text("lost"));
  for (std::size_t i = 0; i < TextCache::kMaxTexts; ++i) {
    get(text(std::to_string(i)));
    get(text("kept"));
    ASSERT_LE(cache_.textCount(), TextCache::kMaxTexts);
  }
  EXPECT_EQ(get(text("kept")), kept);
  EXPECT_NE(get(text("lost")), lost);
}

TEST_F(TextCacheTest, IsBoundedByCharactersToo) {
  const std::string many(TextCache::kMaxCharacters / 4, 'x');
  for (char c = 'a'; c <= 'f'; ++c) get(text(c + many), {100, 20});
  EXPECT_LE(cache_.characterCount(), TextCache::kMaxCharacters);
  EXPECT_EQ(cache_.textCount(), 3u);
  // A text larger than the bound is still given, and is the only one kept.
  get(text(std::string(TextCache::kMaxCharacters + 1, 'y')), {100, 20});
  EXPECT_EQ(cache_.textCount(), 1u);
  cache_.clear();
  EXPECT_EQ(cache_.characterCount(), 0u);
}

}  // namespace
}  // namespace tarvel
