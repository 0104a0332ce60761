#include "ui/TextLayout.h"

#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvel {

namespace {

constexpr double kUnlimitedWidth = 1'000'000.0;
constexpr double kTabDistance = 28.0;
/// Sums of heights are compared with limits that were such sums themselves.
constexpr double kTolerance = 0.01;
constexpr QChar kEllipsis{u'\u2026'};

QTextCharFormat formatFor(const TextAttributes& attributes, bool colored, Appearance appearance) {
  QTextCharFormat format;
  format.setFont(attributes.font());
  if (colored) format.setForeground(attributes.color.resolve(appearance));
  return format;
}

}  // namespace

struct TextLayout::Paragraph {
  QString text;
  QList<QTextLayout::FormatRange> formats;
  QFont font;
  ParagraphStyle style;
  std::optional<Qt::LayoutDirection> direction;  ///< none: that of the first letter that has one

  /// A piece of the paragraph followed by an ellipsis, in the looks of the piece.
  Paragraph cut(int start, int length) const {
    Paragraph piece = *this;
    piece.text = text.mid(start, length);
    while (!piece.text.isEmpty() && piece.text.back().isSpace()) piece.text.chop(1);
    piece.text += kEllipsis;
    piece.formats.clear();
    const int end = start + static_cast<int>(piece.text.size());
    for (QTextLayout::FormatRange range : formats) {
      const int from = std::max(range.start, start);
      const int to = std::min(range.start + range.length, end);
      if (from >= to) continue;
      range.start = from - start;
      range.length = to - from;
      piece.formats.push_back(range);
    }
    if (!piece.formats.isEmpty()) {
      QTextLayout::FormatRange& last = piece.formats.back();
      last.length = static_cast<int>(piece.text.size()) - last.start;
    }
    return piece;
  }
};

std::vector<TextLayout::Paragraph> TextLayout::paragraphsOf(const AttributedText& text,
                                                            Appearance appearance) {
  const bool colored = text.runs().size() > 1;
  std::vector<Paragraph> paragraphs;
  bool open = false;  // a newline at the very end begins no further paragraph
  for (const TextRun& run : text.runs()) {
    const QTextCharFormat format = formatFor(run.attributes, colored, appearance);
    for (qsizetype start = 0; start < run.text.size();) {
      const qsizetype newline = run.text.indexOf(u'\n', start);
      const qsizetype end = newline < 0 ? run.text.size() : newline;
      if (!open) paragraphs.push_back({{}, {}, format.font(), run.attributes.paragraph, {}});
      Paragraph& paragraph = paragraphs.back();
      const auto length = static_cast<int>(end - start);
      if (length > 0 && (colored || format.font() != paragraph.font)) {
        paragraph.formats.push_back({static_cast<int>(paragraph.text.size()), length, format});
      }
      paragraph.text += QStringView(run.text).mid(start, length);
      open = newline < 0;
      start = end + 1;
    }
  }
  return paragraphs;
}

TextLayout::TextLayout(const AttributedText& text, Size limit, TextFit fit, Appearance appearance)
    : lineWidth_(limit.width > 0.0 ? limit.width : kUnlimitedWidth),
      heightLimit_(limit.height > 0.0 ? limit.height + kTolerance : std::numeric_limits<double>::infinity()) {
  const std::vector<Paragraph> paragraphs = paragraphsOf(text, appearance);
  const auto isBlank = [](const Paragraph& paragraph) {
    return QStringView(paragraph.text).trimmed().isEmpty();
  };
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    const std::size_t linesBefore = lines_.size();
    if (i > 0) bottom_ += paragraphs[i - 1].style.spacing;
    const bool whole = addParagraph(paragraphs[i]);
    if (whole) continue;
    if (fit == TextFit::wrapAndTruncate) {
      const bool noneOfThis = lines_.size() == linesBefore;
      const bool moreFollows = std::any_of(paragraphs.begin() + static_cast<std::ptrdiff_t>(i),
                                           paragraphs.end(), [&](const Paragraph& p) { return !isBlank(p); });
      if (!noneOfThis || moreFollows)
        truncateLastLine(paragraphs[noneOfThis ? i - 1 : i], noneOfThis ? 0 : 1);
    }
    break;
  }
  for (const Line& line : lines_) size_.width = std::max(size_.width, std::ceil(line.width - kTolerance));
  if (limit.width > 0.0) size_.width = std::min(size_.width, limit.width);
}

std::unique_ptr<QTextLayout> TextLayout::makeLayout(const Paragraph& paragraph) const {
  auto layout = std::make_unique<QTextLayout>(paragraph.text, paragraph.font);
  // Lines are put to the left here and aligned when they are drawn, in a width known only then.
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(paragraph.direction.value_or(Qt::LayoutDirectionAuto));
  option.setUseDesignMetrics(true);
  option.setTabStopDistance(kTabDistance);
  layout->setTextOption(option);
  layout->setFormats(paragraph.formats);
  layout->setCacheEnabled(true);
  return layout;
}

bool TextLayout::addParagraph(const Paragraph& paragraph) {
  const std::size_t index = layouts_.size();
  layouts_.push_back(makeLayout(paragraph));
  QTextLayout& layout = *layouts_.back();
  bool whole = true;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(lineWidth_);
    whole = addLine(line, index, paragraph.style);
    if (!whole) break;
  }
  layout.endLayout();
  return whole;
}

bool TextLayout::addLine(QTextLine line, std::size_t layout, const ParagraphStyle& style) {
  const double glyphs = std::ceil(line.height() - kTolerance);
  const double height = std::ceil(glyphs * style.lineHeightMultiple - kTolerance);
  if (!lines_.empty() && bottom_ + height > heightLimit_) return false;
  bottom_ += height;
  size_.height = bottom_;
  lines_.push_back({layout, line.lineNumber(), bottom_ - glyphs, line.naturalTextWidth(), style.alignment});
  return true;
}

/// `leftOut` lines of the paragraph were laid out behind the last one that shows; the first of them lends its
/// beginning to fill up the line before the ellipsis.
void TextLayout::truncateLastLine(const Paragraph& paragraph, int leftOut) {
  Line& last = lines_.back();
  const QTextLayout& full = *layouts_[last.layout];
  const QTextLine shown = full.lineAt(last.index);
  int length = shown.textLength();
  for (int i = 1; i <= leftOut; ++i) length += full.lineAt(last.index + i).textLength();
  const QString candidate = paragraph.text.mid(shown.textStart(), length);
  std::vector<int> ends{0};
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, candidate);
  for (auto end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
    ends.push_back(static_cast<int>(end));
  }
  Paragraph piece = paragraph;
  piece.direction = paragraph.text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
  const auto layOut = [&](int end) {
    auto layout = makeLayout(piece.cut(shown.textStart(), end));
    layout->beginLayout();
    layout->createLine().setLineWidth(kUnlimitedWidth);
    layout->endLayout();
    return layout;
  };
  const auto fits = [&](int end) { return layOut(end)->lineAt(0).naturalTextWidth() <= lineWidth_; };
  const auto firstTooLong = std::partition_point(ends.begin() + 1, ends.end(), fits);
  layouts_.push_back(layOut(*(firstTooLong - 1)));
  last.layout = layouts_.size() - 1;
  last.index = 0;
  last.width = layouts_.back()->lineAt(0).naturalTextWidth();
}

void TextLayout::draw(QPainter& painter, const Rect& rect, const QColor& color) const {
  painter.save();
  painter.setPen(color);
  const double width = rect.width > 0.0 ? rect.width : size_.width;
  for (const Line& line : lines_) {
    double x = rect.x;
    if (line.alignment == TextAlignment::centred) x += (width - line.width) / 2;
    if (line.alignment == TextAlignment::right) x += width - line.width;
    layouts_[line.layout]->lineAt(line.index).draw(&painter, {x, rect.y + line.y});
  }
  painter.restore();
}

}  // namespace tarvel
