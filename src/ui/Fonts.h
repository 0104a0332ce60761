#pragma once
#include <QFont>

namespace tarvel {

enum class FontWeight { regular, medium, bold };

/// The application's own font at a size in points (logical pixels) and weight.
QFont systemFont(double size, FontWeight weight = FontWeight::regular);
/// A font of the same kind whose digits are all equally wide, so that a running clock stands still.
QFont tabularDigitsFont(double size, FontWeight weight = FontWeight::regular);
/// A font all of whose characters are equally wide, for reports in columns.
QFont fixedWidthFont(double size);
/// Chooses the application's font: the desktop's where it names one, else the best at hand. Once, after the
/// QApplication is made.
void installSystemFont();

}  // namespace tarvel
