#include "ui/TextCache.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvel {
namespace {

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
