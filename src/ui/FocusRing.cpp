#include "ui/FocusRing.h"

#include <QWidget>

#include "ui/NamedColors.h"
#include "ui/PixelBox.h"

namespace tarvel {
namespace {

constexpr double kRingLine = 3.0;
constexpr double kSetOff = 1.0;  // the line at each side of the ring
constexpr double kBand = kSetOff + kRingLine + kSetOff;
constexpr double kLeastHeight = 24.0;  // of what has room for the ring beside its text

}  // namespace

bool hasKeyboardFocus(const QWidget& view) {
  return view.hasFocus() && view.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void drawFocusRing(QPainter& painter, const QRectF& rect, const QWidget& view) {
  // Around what is lower than that it lies outside, so that the text can still be read.
  const double reach = rect.height() < kLeastHeight ? kBand : 0.0;
  const QRectF ring = rect.adjusted(0.0, -reach, 0.0, reach);
  const QColor surface = color(kContentBackground, &view);
  PixelBox(painter, ring).frame(kBand, surface);
  PixelBox(painter, ring.adjusted(kSetOff, kSetOff, -kSetOff, -kSetOff))
      .frame(kRingLine, color(kKeyboardFocusIndicator, &view));
}

}  // namespace tarvel
