#include "ui/SystemAppearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusVariant>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <cmath>

#include <QFontMetricsF>

#include "ui/AttributedText.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/Window.h"

namespace tarvel {
namespace {

const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kScheme = QStringLiteral("color-scheme");

class SystemAppearanceTest : public testing::Test {
 protected:
  SystemAppearanceTest() {
    QObject::connect(&system_, &SystemAppearance::changed, [this] {
      ++changes_;
      windowColorAtChange_ = QApplication::palette().color(QPalette::Base);
    });
  }
  void portalSays(uint scheme, const QString& group = kGroup, const QString& key = kScheme) {
    system_.portalSettingChanged(group, key, QDBusVariant(QVariant(scheme)));
  }

  /// The palette of the test before would be taken for the desktop's.
  struct LightDesktop {
    LightDesktop() { QApplication::setPalette(paletteFor(Appearance::light)); }
  } desktop_;
  SystemAppearance system_;
  int changes_ = 0;
  QColor windowColorAtChange_;
};

TEST_F(SystemAppearanceTest, FollowsThePortal) {
  EXPECT_EQ(system_.current(), Appearance::light);
  portalSays(1);
  EXPECT_EQ(system_.current(), Appearance::dark);
  EXPECT_EQ(changes_, 1);
  EXPECT_EQ(windowColorAtChange_, color(kContentBackground, Appearance::dark));
  portalSays(1);
  portalSays(2, "org.gnome.desktop.interface");
  portalSays(2, kGroup, "reduced-motion");
  EXPECT_EQ(changes_, 1);
  portalSays(2);
  EXPECT_EQ(system_.current(), Appearance::light);
  portalSays(1);
  portalSays(0);  // no preference: what the palette looked like
  EXPECT_EQ(system_.current(), Appearance::light);
  EXPECT_EQ(changes_, 4);
}

TEST_F(SystemAppearanceTest, FollowsTheDesktopsContrast) {
  Window window;
  window.setChosenAppearance(Appearance::dark);
  AttributedText text("two ", {});
  text.append("looks", {13.0, FontWeight::regular, kSystemRed});
  const auto picture = [&] {
    QImage image(100, 20, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    draw(painter, {0, 0, 100, 20}, text, TextFit::wrap, Appearance::dark);
    return image;
  };
  const QImage usual = picture();
  portalSays(1, kGroup, "contrast");
  EXPECT_EQ(changes_, 1);
  EXPECT_EQ(QApplication::palette().color(QPalette::WindowText), QColor(Qt::black));
  EXPECT_EQ(window.palette().color(QPalette::WindowText), QColor(Qt::white));
  EXPECT_NE(picture(), usual);
  portalSays(1, kGroup, "contrast");
  EXPECT_EQ(changes_, 1);
  portalSays(0, kGroup, "contrast");
  EXPECT_EQ(picture(), usual);
}

TEST_F(SystemAppearanceTest, FollowsTheDesktopsTextSize) {
  QWidget hasItsOwn;
  hasItsOwn.setFont(systemFont(11.0));
  const int standard = QApplication::font().pixelSize();
  const Size measured = boundingRect(AttributedText("Text", {10.0}), {}, TextFit::wrap);
  using Case = std::pair<QVariant, double>;
  // One after the other: each leaves the size of the one before behind.
  for (const auto& [value, scale] :
       {Case{1.25, 1.25}, Case{1.5, 1.5}, Case{2.0, 2.0}, Case{1.1, 1.1}, Case{5.0, 2.0}, Case{0.5, 1.0},
        Case{qQNaN(), 1.0}, Case{"large", 1.0}}) {
    system_.portalSettingChanged("org.gnome.desktop.interface", "text-scaling-factor", QDBusVariant(value));
    EXPECT_EQ(textScale(), scale);
    EXPECT_EQ(systemFont(20.0).pixelSize(), std::lround(20.0 * scale));
    EXPECT_EQ(hasItsOwn.font().pixelSize(), std::lround(11.0 * scale));
    EXPECT_EQ(QApplication::font().pixelSize(), std::lround(standard * scale));
    EXPECT_NEAR(boundingRect(AttributedText("Text", {10.0}), {}, TextFit::wrap).height,
                measured.height * scale, 2.0);
    const FixedTextScale fixed;
    EXPECT_EQ(boundingRect(AttributedText("Text", {10.0}), {}, TextFit::wrap), measured);
  }
}

TEST_F(SystemAppearanceTest, AnOverrideHoldsAgainstThePortal) {
  system_.setOverride(Appearance::dark);
  EXPECT_EQ(changes_, 1);
  portalSays(2);
  EXPECT_EQ(system_.current(), Appearance::dark);
  system_.setOverride(std::nullopt);
  EXPECT_EQ(system_.current(), Appearance::light);
  EXPECT_EQ(changes_, 2);
}

TEST_F(SystemAppearanceTest, AWindowsOwnChoiceIsItsAndItsViewsAlone) {
  Window own;
  auto* view = new QWidget(&own);
  Window other;
  own.setChosenAppearance(Appearance::dark);
  EXPECT_EQ(appearanceOf(view), Appearance::dark);
  EXPECT_EQ(view->palette().color(QPalette::WindowText), color(kLabel, Appearance::dark));
  EXPECT_EQ(appearanceOf(&other), Appearance::light);
  EXPECT_EQ(appearanceOf(nullptr), Appearance::light);
  system_.setOverride(Appearance::dark);
  EXPECT_EQ(appearanceOf(&other), Appearance::dark);
  own.setChosenAppearance(Appearance::light);
  EXPECT_EQ(appearanceOf(view), Appearance::light);
  EXPECT_EQ(view->palette().color(QPalette::WindowText), color(kLabel, Appearance::light));
  own.setChosenAppearance(std::nullopt);
  EXPECT_EQ(view->palette().color(QPalette::WindowText), color(kLabel, Appearance::dark));
}

TEST(SystemAppearanceFallback, IsWhatTheDesktopsPaletteLooksLike) {
  for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
    QApplication::setPalette(paletteFor(appearance));
    EXPECT_EQ(SystemAppearance().current(), appearance);
  }
}

TEST_F(SystemAppearanceTest, ClocksGetDigitsOfOneWidth) {
  for (const FontWeight weight : {FontWeight::regular, FontWeight::bold}) {
    const QFontMetricsF metrics(tabularDigitsFont(40.0, weight));
    for (char16_t digit = u'1'; digit <= u'9'; ++digit)
      EXPECT_NEAR(metrics.horizontalAdvance(QChar(digit)), metrics.horizontalAdvance(u'0'), 0.3);
  }
}

}  // namespace
}  // namespace tarvel
