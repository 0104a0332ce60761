#pragma once
#include <QFont>

namespace tarvel {

enum class FontWeight { regular, medium, bold };

/// The desktop's wish for larger text: what the sizes below are multiplied by, 1.0 unless it has one.
double textScale();
/// Limited to 1.0 to 2.0; what is no number counts as 1.0. Sets the application's font, and gives every
/// widget with a font of its own that font in the new size.
void setTextScale(double scale);
/// The room for a text that needs that much at a scale of 1.0.
int scaledForText(int length);

/// While one lives, the scale is 1.0: for paper, and where the size of a text follows from its room. They may
/// be nested. Main thread.
class FixedTextScale {
 public:
  FixedTextScale();
  ~FixedTextScale();
  FixedTextScale(const FixedTextScale&) = delete;
  FixedTextScale& operator=(const FixedTextScale&) = delete;
};

/// The application's own font at a size in points (logical pixels) and weight, larger by the text scale.
QFont systemFont(double size, FontWeight weight = FontWeight::regular);
/// A font of the same kind whose digits are all equally wide, so that a running clock stands still.
QFont tabularDigitsFont(double size, FontWeight weight = FontWeight::regular);
/// A font all of whose characters are equally wide, for reports in columns.
QFont fixedWidthFont(double size);
/// Chooses the application's font: the desktop's where it names one, else the best at hand. Once, after the
/// QApplication is made.
void installSystemFont();

}  // namespace tarvel
