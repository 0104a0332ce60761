#include "ui/AttributedText.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <string>

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
  const struct {
    const char* name;
    std::string text;
    double width;
    int lines;
  } cases[] = {
      {"one line", "abc", 0, 1},
      {"two lines", "abc\ndef", 0, 2},
      {"an empty line between", "abc\n\ndef", 0, 3},
      {"a newline at the end", "abc\n", 0, 1},
      {"newlines alone", "\n\n", 0, 2},
      {"no width at all", kLongText, 0, 1},
      {"a word wider than the room", std::string(40, 'W'), 100, 5},
  };
  for (const auto& c : cases) {
    const Size size = measure(c.text, {c.width, 0});
    if (c.width > 0) {
      EXPECT_GE(lineCount(size), c.lines) << c.name;
      EXPECT_LE(size.width, c.width) << c.name;
    } else {
      EXPECT_EQ(lineCount(size), c.lines) << c.name;
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

TEST(AttributedText, ALineThatIsTooLongIsNotLaidOutFurtherThanItShows) {
  // Lines that don't show must not cost: the same room for a text a thousand times as long.
  std::string many;
  for (int i = 0; i < 20'000; ++i) many += "line\n";
  EXPECT_EQ(measure(many, {100, 40}, TextFit::wrapAndTruncate).height,
            measure("line\nline\nline\nline", {100, 40}).height);
}

}  // namespace
}  // namespace tarvel
