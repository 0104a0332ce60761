#include "ui/NamedColors.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvel {
namespace {

constexpr Appearance kBoth[] = {Appearance::light, Appearance::dark};
constexpr double kReadable = 4.5;
constexpr double kVisible = 3.0;  // of symbols and outlines

TEST(NamedColors, AreAllThere) {
  checkNamedColors();
}

TEST(NamedColorsDeathTest, AMissingNameStopsTheProgram) {
  for (const char* name : {"", "schedule", "Schedule Background", "content background 3"})
    EXPECT_DEATH(color(NamedColor{name}, Appearance::light), "Fatal error") << name;
}

TEST(NamedColors, TextsAndSymbolsStandOutFromEverySurface) {
  using Limits = std::tuple<Contrast, double, double>;
  for (const auto& [wanted, readable, visible] :
       {Limits{Contrast::standard, kReadable, kVisible}, Limits{Contrast::high, 7.0, 4.5}}) {
    setContrast(wanted);
    for (const Appearance appearance : kBoth) {
      const auto of = [&](NamedColor name) { return color(name, appearance); };
      const std::string where =
          (appearance == Appearance::dark ? " dark " : " light ") + std::to_string(readable);
      for (const NamedColor surface :
           {kScheduleBackground, kTodayBackground, kContentBackground, kContentBackground2}) {
        const auto contrast = [&](NamedColor name) { return contrastRatio(of(name), of(surface)); };
        for (const NamedColor text :
             {kLabel, kSecondaryLabel, kTertiaryLabel, kSystemRed, kSystemGreen, kControlAccent}) {
          EXPECT_GE(contrast(text), readable) << text.name << " on " << surface.name << where;
        }
        for (const NamedColor symbol : {kSystemYellow, kKeyboardFocusIndicator})
          EXPECT_GE(contrast(symbol), visible) << symbol.name << " on " << surface.name << where;
        if (wanted == Contrast::standard) continue;
        for (const NamedColor line :
             {kContentBorder, kGrid, kScheduleGrid, kScheduleColumns, kControlAccent}) {
          EXPECT_GE(contrast(line), visible) << line.name << " on " << surface.name << where;
        }
      }
      EXPECT_GE(contrastRatio(of(kSelectedContentBackground), Qt::white), readable) << where;
      for (const NamedColor fill : {kInactiveSelectedContentFill, kControlTrack, kControlSurface})
        EXPECT_GE(contrastRatio(of(kLabel), of(fill)), readable) << fill.name << where;
    }
  }
  setContrast(Contrast::standard);
}

TEST(NamedColors, TheDesktopsAccentCountsWhereWhiteTextIsReadableOnIt) {
  const QColor ours = color(kSelectedContentBackground, Appearance::light);
  const QColor purple(0x7A, 0x3E, 0xB1);
  setDesktopAccent(QColor(Qt::yellow));
  EXPECT_EQ(color(kSelectedContentBackground, Appearance::light), ours);
  setDesktopAccent(purple);
  EXPECT_EQ(color(kSelectedContentBackground, Appearance::light), purple);
  EXPECT_EQ(color(kControlAccent, Appearance::light), purple);
  EXPECT_GT(color(kControlAccent, Appearance::dark).lightness(), purple.lightness());
  EXPECT_NE(color(kLabel, Appearance::light), purple);
  setContrast(Contrast::high);
  EXPECT_NE(color(kSelectedContentBackground, Appearance::light), purple);
  setContrast(Contrast::standard);
  setDesktopAccent(std::nullopt);
  EXPECT_EQ(color(kSelectedContentBackground, Appearance::light), ours);
}

TEST(NamedColors, ContrastIsThatOfTheKnownPairs) {
  EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.001);
  EXPECT_NEAR(contrastRatio(Qt::white, Qt::white), 1.0, 0.001);
  EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(ColorSource, IsLookedUpWhereItIsUsed) {
  EXPECT_NE(ColorSource(kLabel).resolve(Appearance::light), ColorSource(kLabel).resolve(Appearance::dark));
  const ColorSource fixed(Color{1.0, 0.0, 2.0, 0.5});
  EXPECT_EQ(fixed.resolve(Appearance::dark).name(QColor::HexArgb), "#80ff00ff");
}

}  // namespace
}  // namespace tarvel
