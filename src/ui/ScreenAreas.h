#pragma once
#include <QRect>
#include <vector>

#include "ui/WindowPlacement.h"

class QScreen;

namespace tarvel {

/// The screens that exist now as window places, the primary first. Main thread.
std::vector<ScreenArea> screenAreas();
/// Null gives the primary's; empty rectangles if there is no screen at all.
ScreenArea screenAreaOf(const QScreen* screen);
/// Between the toolkit's places, y downwards, and those of windows. Fractions are rounded to the nearest.
Rect fromToolkit(const QRect& rect);
QRect toToolkit(const Rect& place);

}  // namespace tarvel
