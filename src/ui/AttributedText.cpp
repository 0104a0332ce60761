#include "ui/AttributedText.h"

#include <QPainter>
#include <utility>

#include "ui/TextCache.h"

namespace tarvel {

QFont TextAttributes::font() const {
  switch (design) {
    case FontDesign::tabularDigits:
      return tabularDigitsFont(fontSize, weight);
    case FontDesign::fixedWidth:
      return fixedWidthFont(fontSize);
    case FontDesign::standard:
      break;
  }
  return systemFont(fontSize, weight);
}

void AttributedText::append(std::string_view text, const TextAttributes& attributes) {
  append(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), attributes);
}

void AttributedText::append(const QString& text, const TextAttributes& attributes) {
  QString plain = text;
  plain.remove(u'\r');  // of lines divided in the manner of other systems
  if (!plain.isEmpty()) runs_.push_back({std::move(plain), attributes});
}

QString AttributedText::plainText() const {
  QString joined;
  for (const TextRun& run : runs_) joined += run.text;
  return joined;
}

Size boundingRect(const AttributedText& text, Size limit, TextFit fit) {
  if (text.empty()) return {};
  // A text of one look is laid out alike in both appearances, and one of several has the same size.
  return TextCache::shared().layout(text, limit, fit, Appearance::light)->size();
}

void draw(QPainter& painter, const Rect& rect, const AttributedText& text, TextFit fit,
          Appearance appearance) {
  if (text.empty()) return;
  const auto layout = TextCache::shared().layout(text, {rect.width, rect.height}, fit, appearance);
  layout->draw(painter, rect, text.runs().front().attributes.color.resolve(appearance));
}

}  // namespace tarvel
