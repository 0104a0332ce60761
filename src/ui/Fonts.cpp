#include "ui/Fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "ui/TextCache.h"

namespace tarvel {

namespace {

constexpr double kStandardSize = 13.0;
constexpr double kLargestTextScale = 2.0;

double desktopTextScale = 1.0;
int fixedScales = 0;
/// The application's font as it is at a scale of 1.0.
QFont unscaledFont;

/// The names under which Qt asks for any sans-serif face when the desktop names none.
const QStringList kNoChoice{QStringLiteral("Sans Serif"), QStringLiteral("Sans"),
                            QStringLiteral("Helvetica")};
const QStringList kPreferred{QStringLiteral("Inter"), QStringLiteral("Cantarell"),
                             QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")};
const QStringList kTabularCandidates{QStringLiteral("Noto Sans"), QStringLiteral("Roboto"),
                                     QStringLiteral("Open Sans"), QStringLiteral("Liberation Sans"),
                                     QStringLiteral("DejaVu Sans")};

QFont::Weight qtWeight(FontWeight weight) {
  switch (weight) {
    case FontWeight::medium:
      return QFont::Medium;
    case FontWeight::bold:
      return QFont::Bold;
    case FontWeight::regular:
      break;
  }
  return QFont::Normal;
}

QFont sized(QFont font, double size, FontWeight weight) {
  // Text is measured once and drawn at any scale, so its widths must not depend on the pixel grid.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(size * textScale()))));
  font.setWeight(qtWeight(weight));
  return font;
}

QFont resized(QFont font, double scale) {
  if (font.pixelSize() > 0) {
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * scale)));
  } else {
    font.setPointSizeF(font.pointSizeF() * scale);
  }
  return font;
}

bool hasTabularDigits(const QFont& font) {
  const QFontMetricsF metrics(sized(font, 100.0, FontWeight::regular));
  const double width = metrics.horizontalAdvance(u'0');
  for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
    if (std::abs(metrics.horizontalAdvance(QChar(digit)) - width) > 0.01) return false;
  }
  return true;
}

QString chooseTabularFamily() {
  if (hasTabularDigits(QApplication::font())) return QApplication::font().family();
  for (const QString& family : kTabularCandidates) {
    if (QFontDatabase::hasFamily(family) && hasTabularDigits(QFont(family))) return family;
  }
  return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

}  // namespace

double textScale() {
  return fixedScales > 0 ? 1.0 : desktopTextScale;
}

int scaledForText(int length) {
  return static_cast<int>(std::lround(length * textScale()));
}

FixedTextScale::FixedTextScale() {
  ++fixedScales;
}

FixedTextScale::~FixedTextScale() {
  --fixedScales;
}

void setTextScale(double scale) {
  const double before = desktopTextScale;
  desktopTextScale = std::isfinite(scale) ? std::clamp(scale, 1.0, kLargestTextScale) : 1.0;
  if (desktopTextScale == before) return;
  // Their sizes are whole at a scale of 1.0, so that they come back from any other. All are asked before the
  // first is set, which others may inherit from.
  std::vector<std::pair<QWidget*, double>> widgets;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->testAttribute(Qt::WA_SetFont) && widget->font().pixelSize() > 0)
      widgets.emplace_back(widget, std::round(widget->font().pixelSize() / before));
  }
  QApplication::setFont(resized(unscaledFont, desktopTextScale));
  for (const auto& [widget, unscaled] : widgets) {
    QFont font = widget->font();
    font.setPixelSize(static_cast<int>(std::lround(unscaled * desktopTextScale)));
    widget->setFont(font);
  }
}

QFont systemFont(double size, FontWeight weight) {
  return sized(QApplication::font(), size, weight);
}

QFont tabularDigitsFont(double size, FontWeight weight) {
  static QString systemFamily;
  static QString family;
  if (systemFamily != QApplication::font().family() || family.isEmpty()) {
    systemFamily = QApplication::font().family();
    family = chooseTabularFamily();
  }
  QFont font = QApplication::font();
  font.setFamily(family);
  return sized(font, size, weight);
}

QFont fixedWidthFont(double size) {
  return sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), size, FontWeight::regular);
}

void installSystemFont() {
  QFont font = QApplication::font();
  if (kNoChoice.contains(font.family())) {
    for (const QString& family : kPreferred) {
      if (!QFontDatabase::hasFamily(family)) continue;
      font.setFamily(family);
      break;
    }
    font.setPixelSize(static_cast<int>(kStandardSize));
  }
  unscaledFont = font;
  QApplication::setFont(resized(font, desktopTextScale));
  TextCache::shared().clear();
}

}  // namespace tarvel
