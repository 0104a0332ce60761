#pragma once
#include <QTextLayout>
#include <memory>
#include <optional>
#include <vector>

#include "ui/AttributedText.h"

namespace tarvel {

/// A text broken into lines for a room, ready to be drawn any number of times. Nothing is laid out beyond the
/// last line that shows. The colours of a text in several looks are those of the appearance it was made for;
/// a text in one look takes its colour when it is drawn. Main thread.
class TextLayout {
 public:
  TextLayout(const AttributedText& text, Size limit, TextFit fit, Appearance appearance);

  Size size() const { return size_; }
  /// Draws from the rectangle's top left corner, aligned in its width (in the text's own if that is 0).
  void draw(QPainter& painter, const Rect& rect, const QColor& color) const;

 private:
  struct Paragraph;
  struct Line {
    std::size_t layout;
    int index;  ///< among the layout's lines
    double y;   ///< of the glyphs' top
    double width;
    TextAlignment alignment;
  };

  static std::vector<Paragraph> paragraphsOf(const AttributedText& text, Appearance appearance);
  /// Adds the paragraph's lines as long as they fit; false if the room came to its end before the paragraph
  /// did.
  bool addParagraph(const Paragraph& paragraph);
  bool addLine(QTextLine line, std::size_t layout, const ParagraphStyle& style);
  void truncateLastLine(const Paragraph& paragraph, int leftOut);
  std::unique_ptr<QTextLayout> makeLayout(const Paragraph& paragraph) const;

  double lineWidth_;
  double heightLimit_;
  double bottom_ = 0.0;  ///< of the last line
  std::vector<std::unique_ptr<QTextLayout>> layouts_;
  std::vector<Line> lines_;
  Size size_;
};

}  // namespace tarvel
