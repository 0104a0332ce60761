#include "ui/Fonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "ui/TextCache.h"

namespace tarvel {

namespace {

constexpr double kStandardSize = 13.0;

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
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
  font.setWeight(qtWeight(weight));
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
  QApplication::setFont(font);
  TextCache::shared().clear();
}

}  // namespace tarvel
