#pragma once
#include <QRectF>

class QPainter;
class QWidget;

namespace tarvel {

/// Whether the view has the keyboard and the user went to it by the keyboard; not where a window that was
/// opened or activated has given it to the first view that takes it.
bool hasKeyboardFocus(const QWidget& view);

/// Draws the ring around the part of a view that has the keyboard's focus: the focus colour, between two
/// lines of the view's surface that set it off from whatever is drawn under it. It lies
/// within the rectangle or, above and below one that is too low for it, outside.
void drawFocusRing(QPainter& painter, const QRectF& rect, const QWidget& view);

}  // namespace tarvel
