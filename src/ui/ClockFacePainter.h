#pragma once
#include <QPainter>

#include "ui/Appearance.h"
#include "ui/ClockHands.h"

namespace tarvel {

/// Draws a round clock into a square: dial, marks, numerals and hands. Everything grows with the square; a
/// face too small for numerals has marks alone, and a very small one those of the hours alone.
void paintClockFace(QPainter& painter, const QRectF& square, const ClockHands& hands, Appearance appearance);

}  // namespace tarvel
