#pragma once
#include <QString>

namespace tarvel {

/// A tooltip that shows the text as it is: the toolkit takes for markup what looks like it, and texts of
/// servers may.
QString plainToolTip(const QString& text);

}  // namespace tarvel
