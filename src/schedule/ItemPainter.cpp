#include "schedule/ItemPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "schedule/DevicePixels.h"
#include "schedule/ScheduleItemText.h"

namespace tarvel {
namespace {

constexpr double kScreenTimeFontSize = 8.0;
constexpr double kPrintedTimeFontSize = 5.0;
constexpr double kFrameLine = 1.0;
// The texts' colours are fixed, whatever the appearance: they stand on the sessions' own colours.
constexpr Appearance kAnyAppearance = Appearance::light;

ItemStyles stylesOf(double fontSize) {
  ItemStyles styles;
  styles.name = {fontSize, FontWeight::regular, kBlack, kCentredStyle};
  styles.resurface = {fontSize * kResurfaceFontScale, FontWeight::regular, kResurfaceTextColor,
                      kCentredStyle};
  return styles;
}

/// Where a line starts that is higher than its bar: its capitals stand in the middle between the bar's frame
/// lines, so that what is cut off is the room above and below the letters. Lines are laid out with whole
/// pixels above the base line.
double yOfHighLine(QPainter& painter, const Rect& rect, const AttributedText& text) {
  const QFontMetricsF metrics(text.runs().front().attributes.font());
  const Rect inside = DevicePixels(painter).insideOfFrame(rect, kFrameLine);
  return inside.y + (inside.height + metrics.capHeight()) / 2 - std::ceil(metrics.ascent());
}

}  // namespace

ItemStyles ItemStyles::onScreen(double fontSize) {
  ItemStyles styles = stylesOf(fontSize);
  styles.time = {kScreenTimeFontSize, FontWeight::regular, kItemTimeColor, kCentredStyle};
  return styles;
}

ItemStyles ItemStyles::onPage(double fontSize) {
  ItemStyles styles = stylesOf(fontSize);
  styles.time = {kPrintedTimeFontSize, FontWeight::regular, kBlack, kCentredStyle};
  styles.timeBand = kPrintedTimeBand;
  return styles;
}

ItemClip::ItemClip(QPainter& painter, const Rect& rect) : painter_(painter) {
  painter_.save();
  painter_.setClipRect(QRectF(rect.x, rect.y, rect.width, rect.height), Qt::IntersectClip);
}

ItemClip::~ItemClip() {
  painter_.restore();
}

void paintItemBlock(QPainter& painter, const Rect& rect, const Color& sessionColor, const Color& frameColor) {
  const DevicePixels pixels(painter);
  pixels.fill(rect, toQColor(sessionColor));
  pixels.frame(rect, kFrameLine, toQColor(frameColor));
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

void paintItemText(QPainter& painter, const Rect& rect, const AttributedText& text, double lift) {
  if (rect.empty() || text.empty()) return;
  const FixedTextScale ownSize;  // which the user sets in the window
  const Size size = boundingRect(text, {rect.width, rect.height}, TextFit::wrapAndTruncate);
  const double y = size.height > rect.height ? yOfHighLine(painter, rect, text)
                                             : rect.y + (rect.height - size.height) / 2 - lift;
  draw(painter, {rect.x, y, rect.width, size.height}, text, TextFit::wrapAndTruncate, kAnyAppearance);
}

void paintItem(QPainter& painter, const ScheduleItem& item, const Rect& rect, const Color& sessionColor,
               const ItemStyles& styles, SessionTimes sessionTimes) {
  const FixedTextScale ownSize;
  paintItemBlock(painter, rect, sessionColor, itemFrameColor(item.kind));
  const ItemClip clip(painter, rect);
  double height = rect.height;
  if (item.kind != SessionKind::resurface && sessionTimes == SessionTimes::shown) {
    const Rect band{rect.x, rect.maxY() - styles.timeBand, rect.width, styles.timeBand};
    draw(painter, band, AttributedText(itemTimesText(item), styles.time), TextFit::wrapAndTruncate,
         kAnyAppearance);
    height -= styles.timeBand - kTimeBandOverlap;
  }
  const Rect nameRect{rect.x + kItemTextInset, rect.y, rect.width - 2 * kItemTextInset, height};
  paintItemText(painter, nameRect, AttributedText(item.displayName("\n"), styles.nameOf(item)),
                styles.name.fontSize * kItemTextLift);
  if (!item.note.empty()) paintNoteCorner(painter, rect);
}

}  // namespace tarvel
