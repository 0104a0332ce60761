#include "schedule/ItemPainter.h"

#include <QPainter>
#include <QPainterPath>

#include "foundation/TextFormats.h"
#include "schedule/DevicePixels.h"

namespace tarvel {
namespace {

constexpr double kScreenTimeFontSize = 8.0;
// The texts' colours are fixed, whatever the appearance: they stand on the sessions' own colours.
constexpr Appearance kAnyAppearance = Appearance::light;

void paintTimes(QPainter& painter, const ScheduleItem& item, const Rect& rect, const ItemStyles& styles) {
  const AttributedText times(timeText(item.time) + " - " + timeText(item.time + item.duration), styles.time);
  const Rect band{rect.x, rect.maxY() - styles.timeBand, rect.width, styles.timeBand};
  draw(painter, band, times, TextFit::wrapAndTruncate, kAnyAppearance);
}

void paintName(QPainter& painter, const ScheduleItem& item, const Rect& rect, double height,
               const TextAttributes& attributes, double fontSize) {
  const AttributedText name(item.displayName("\n"), attributes);
  const double width = rect.width - 2 * kItemTextInset;
  if (width <= 0.0) return;
  const Size size = boundingRect(name, {width, height}, TextFit::wrapAndTruncate);
  const double y = rect.y + (height - size.height) / 2 - fontSize * kItemTextLift;
  draw(painter, {rect.x + kItemTextInset, y, width, size.height}, name, TextFit::wrapAndTruncate,
       kAnyAppearance);
}

void paintNoteCorner(QPainter& painter, const Rect& rect) {
  QPainterPath fold;
  fold.moveTo(rect.maxX(), rect.y);
  fold.lineTo(rect.maxX() - kNoteCorner, rect.y);
  fold.lineTo(rect.maxX(), rect.y + kNoteCorner);
  fold.closeSubpath();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(fold, toQColor(kNoteCornerColor));
  painter.restore();
}

}  // namespace

ItemStyles ItemStyles::onScreen(double fontSize) {
  ItemStyles styles;
  styles.name = {fontSize, FontWeight::regular, kBlack, kCentredStyle};
  styles.resurface = {fontSize * kResurfaceFontScale, FontWeight::regular, kResurfaceTextColor,
                      kCentredStyle};
  styles.time = {kScreenTimeFontSize, FontWeight::regular, kItemTimeColor, kCentredStyle};
  return styles;
}

void paintItem(QPainter& painter, const ScheduleItem& item, const Rect& rect, const Color& sessionColor,
               const ItemStyles& styles, SessionTimes sessionTimes) {
  const bool isResurface = item.kind == SessionKind::resurface;
  const DevicePixels pixels(painter);
  pixels.fill(rect, toQColor(sessionColor));
  pixels.frame(rect, 1.0, toQColor(itemFrameColor(item.kind)));
  double height = rect.height;
  if (!isResurface && sessionTimes == SessionTimes::shown) {
    paintTimes(painter, item, rect, styles);
    height = rect.height - styles.timeBand + kTimeBandOverlap;
  }
  paintName(painter, item, rect, height, isResurface ? styles.resurface : styles.name, styles.name.fontSize);
  if (!item.note.empty()) paintNoteCorner(painter, rect);
}

}  // namespace tarvel
