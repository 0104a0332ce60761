#include "schedule/CalendarPainter.h"

#include <QPainter>

#include "ui/AttributedText.h"
#include "ui/PixelBox.h"

namespace tarvel {
namespace {

const TextAttributes kTitleAttributes{11.0, FontWeight::bold, kLabel, kCentredStyle};
const TextAttributes kSelectedTitleAttributes{11.0, FontWeight::bold, white(1.0), kCentredStyle};
const TextAttributes kDayAttributes{10.0, FontWeight::regular, kLabel, kRightStyle};
const TextAttributes kOutOfRangeAttributes{10.0, FontWeight::regular, kTertiaryLabel, kRightStyle};
const TextAttributes kSelectedDayAttributes{10.0, FontWeight::regular, white(1.0), kRightStyle};

constexpr Color kLightGrey = white(2.0 / 3.0);
constexpr double kInactiveGreyPart = 0.6;
constexpr double kInactiveAlpha = 0.5;
constexpr double kTodayLine = 2.0;
constexpr double kFocusLine = 2.0;
constexpr double kFocusReach = 3.0;  // leaves a gap, since line and selection may have one colour
constexpr double kCornerRadius = 3.0;

QColor selectionColor(const CalendarPicture& picture) {
  const QColor active = color(kSelectedContentBackground, picture.appearance);
  if (picture.isMainWindow) return active;
  const auto blend = [](double part, double grey) {
    return part * (1.0 - kInactiveGreyPart) + grey * kInactiveGreyPart;
  };
  return toQColor({blend(active.redF(), kLightGrey.red), blend(active.greenF(), kLightGrey.green),
                   blend(active.blueF(), kLightGrey.blue), kInactiveAlpha});
}

const TextAttributes& attributesFor(CalendarDay::Role role) {
  switch (role) {
    case CalendarDay::Role::outOfRange:
      return kOutOfRangeAttributes;
    case CalendarDay::Role::selected:
      return kSelectedDayAttributes;
    case CalendarDay::Role::plain:
      break;
  }
  return kDayAttributes;
}

QRectF asQRectF(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

/// A line along the edges, within them.
void strokeRounded(QPainter& painter, const Rect& rect, double line, const QColor& color) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, line));
  const double half = line / 2;
  painter.drawRoundedRect(PixelBox(painter, asQRectF(rect)).aligned().adjusted(half, half, -half, -half),
                          kCornerRadius, kCornerRadius);
}

void paintFilled(QPainter& painter, const CalendarPicture& picture, const Rect& rect, double radius) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(selectionColor(picture));
  painter.drawRoundedRect(PixelBox(painter, asQRectF(rect)).aligned(), radius, radius);
  if (!picture.showsFocus) return;
  strokeRounded(painter, rect.inset(-kFocusReach, -kFocusReach), kFocusLine,
                color(kKeyboardFocusIndicator, picture.appearance));
}

void paintNumber(QPainter& painter, const CalendarPicture& picture, const CalendarDay& day) {
  const AttributedText number(day.text, attributesFor(day.role));
  const Size size = boundingRect(number, {}, TextFit::wrap);
  const Point corner = day.numberCorner();
  draw(painter, {corner.x - size.width, corner.y, size.width, size.height}, number, TextFit::wrap,
       picture.appearance);
}

void paintMonth(QPainter& painter, const CalendarPicture& picture, const CalendarMonth& month) {
  if (month.titleSelected) paintFilled(painter, picture, month.titleBand, kCornerRadius);
  const TextAttributes& title = month.titleSelected ? kSelectedTitleAttributes : kTitleAttributes;
  draw(painter, month.titleRect, AttributedText(month.title, title), TextFit::wrap, picture.appearance);
  const std::vector<Rect> rows = month.filledRows();
  // Rows that touch are one surface.
  const double radius = rows.size() == 1 ? kCornerRadius : 0.0;
  for (const Rect& row : rows) paintFilled(painter, picture, row, radius);
  for (const CalendarDay& day : month.days) paintNumber(painter, picture, day);
}

}  // namespace

void paintCalendar(QPainter& painter, const CalendarPicture& picture, const Rect& dirty) {
  const FixedTextScale sizeOfTheCells;
  painter.fillRect(asQRectF(dirty), color(kContentBackground2, picture.appearance));
  painter.setRenderHint(QPainter::Antialiasing);
  const auto [first, end] = picture.layout.monthsMeeting(dirty);
  for (int month = first; month < end; ++month) {
    paintMonth(painter, picture, picture.layout.month(month, picture.selection));
  }
  // After the days, of which the next one would cover half of the line.
  if (const auto today = picture.layout.todayOutline(picture.today, picture.selection)) {
    strokeRounded(painter, today->inset(-kTodayLine / 2, -kTodayLine / 2), kTodayLine,
                  color(kLabel, picture.appearance));
  }
}

}  // namespace tarvel
