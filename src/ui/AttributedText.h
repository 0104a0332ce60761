#pragma once
#include <QString>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "ui/Fonts.h"
#include "ui/NamedColors.h"
#include "ui/ParagraphStyles.h"

class QPainter;

namespace tarvel {

enum class FontDesign { standard, tabularDigits, fixedWidth };

/// How a text looks. Sizes are logical pixels.
struct TextAttributes {
  double fontSize = 13.0;
  FontWeight weight = FontWeight::regular;
  ColorSource color = kLabel;
  ParagraphStyle paragraph = kLeftStyle;
  FontDesign design = FontDesign::standard;

  QFont font() const;
  friend bool operator==(const TextAttributes&, const TextAttributes&) = default;
};

/// What stands where there is nothing else to show.
inline const TextAttributes kMessageAttributes{16.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

struct TextRun {
  QString text;
  TextAttributes attributes;
  friend bool operator==(const TextRun&, const TextRun&) = default;
};

/// A text in one or several looks. Plain text, never markup; lines are divided by '\n'. The paragraph style
/// of a line is that of its first character.
class AttributedText {
 public:
  AttributedText() = default;
  /// From UTF-8; bytes that are none show as U+FFFD.
  AttributedText(std::string_view text, const TextAttributes& attributes) { append(text, attributes); }
  AttributedText(const char* text, const TextAttributes& attributes) { append(text, attributes); }
  AttributedText(const QString& text, const TextAttributes& attributes) { append(text, attributes); }

  void append(std::string_view text, const TextAttributes& attributes);
  void append(const char* text, const TextAttributes& attributes) {
    append(std::string_view(text), attributes);
  }
  void append(const QString& text, const TextAttributes& attributes);
  /// An empty text adds no run.
  const std::vector<TextRun>& runs() const { return runs_; }
  bool empty() const { return runs_.empty(); }
  QString plainText() const;

 private:
  std::vector<TextRun> runs_;
};

/// What becomes of lines that are wider, or more, than the room they have. The numbers are those under which
/// the layouts of this application know the two ways.
enum class TextFit {
  wrap = 1,  ///< lines break at the width, between words where they can; lines beyond the height are left out
  wrapAndTruncate = 33  ///< and the last line that has room ends in an ellipsis if anything was left out
};

/// The room the text takes within the limit: the width of the widest line and the height of all that show,
/// whole pixels high each. A width or height of 0 is no limit. The first line always shows, whatever the
/// height.
Size boundingRect(const AttributedText& text, Size limit, TextFit fit);
/// Draws the text from the top of the rectangle down, y downwards, aligned within its width. The room of a
/// text is always enough for drawing it: what `boundingRect` measured within a limit fits when it is drawn in
/// that size.
void draw(QPainter& painter, const Rect& rect, const AttributedText& text, TextFit fit,
          Appearance appearance);

}  // namespace tarvel
