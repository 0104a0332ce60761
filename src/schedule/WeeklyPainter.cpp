#include "schedule/WeeklyPainter.h"

#include <QPainter>

#include "model/DataModel.h"
#include "schedule/DevicePixels.h"

namespace tarvel {
namespace {

constexpr double kMessageHeight = 24.0;
const TextAttributes kLabelAttributes{10.0};
const TextAttributes kReducedLabelAttributes{9.0};
const TextAttributes kFailureAttributes{12.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

void paintItems(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty) {
  for (const auto& [item, rect] : picture.layout.itemsMeeting(picture.items, dirty)) {
    const Color color = picture.dataModel.sessionColor(static_cast<std::int64_t>(item->kind));
    paintItem(painter, *item, rect, color, picture.styles, picture.sessionTimes);
  }
}

void paintTick(QPainter& painter, const WeeklyPicture& picture, const AxisTick& tick) {
  const WeeklyLayout& layout = picture.layout;
  const DevicePixels pixels(painter);
  const double left = layout.labelColumnWidth();
  const double right = layout.columnX(WeeklyLayout::kDays);
  pixels.horizontalLine(left, right, tick.y, toQColor(kFaintGridColor));
  pixels.horizontalLine(left - kTickLength, left, tick.y, toQColor(kGridColor));
  pixels.horizontalLine(right, right + kTickLength, tick.y, toQColor(kGridColor));
  const AttributedText label(tick.text, layout.reducedWidth() ? kReducedLabelAttributes : kLabelAttributes);
  const Size size = boundingRect(label, {}, TextFit::wrap);
  draw(painter, {left - kTimeLabelGap - size.width, tick.y - size.height / 2, size.width, size.height}, label,
       TextFit::wrap, picture.appearance);
}

void paintAxis(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty) {
  // A label reaches above and below its line by half its height, which is less than the axis' distance from
  // the top.
  const Rect reach = dirty.inset(0.0, -kAxisOrigin);
  for (const AxisTick& tick : picture.layout.ticks()) {
    if (tick.y >= reach.y && tick.y <= reach.maxY()) paintTick(painter, picture, tick);
  }
}

void paintDays(QPainter& painter, const WeeklyPicture& picture) {
  const WeeklyLayout& layout = picture.layout;
  const DevicePixels pixels(painter);
  for (int day = 0; day <= WeeklyLayout::kDays; ++day) {
    pixels.verticalLine(layout.columnX(day), 0.0, picture.size.height, toQColor(kBlack));
  }
  if (const auto past = layout.pastRect(picture.currentDate)) {
    pixels.fill(*past, color(kPastBlend, picture.appearance));
  }
  if (const auto today = layout.todayRect(picture.currentDate)) {
    pixels.frame(*today, WeeklyLayout::kTodayLine, toQColor(kBlack));
  }
  if (const auto selection = layout.selectionRect(picture.selectedDate, picture.currentDate)) {
    const NamedColor name = picture.isMainWindow ? kSelectedContentBackground : kInactiveSelectedContentFrame;
    pixels.frame(*selection, WeeklyLayout::kSelectionLine, color(name, picture.appearance));
  }
}

}  // namespace

void paintWeek(QPainter& painter, const WeeklyPicture& picture, const Rect& dirty) {
  paintItems(painter, picture, dirty);
  paintAxis(painter, picture, dirty);
  paintDays(painter, picture);
}

void paintScheduleMessage(QPainter& painter, const std::string& message, Size size, Appearance appearance) {
  draw(painter, {0.0, (size.height - kMessageHeight) / 2, size.width, kMessageHeight},
       AttributedText(message, kMessageAttributes), TextFit::wrap, appearance);
}

void paintScheduleFailure(QPainter& painter, const std::string& message, Size size, Appearance appearance) {
  const AttributedText text(message, kFailureAttributes);
  const double height = boundingRect(text, size, TextFit::wrap).height;
  draw(painter, {0.0, (size.height - height) / 2, size.width, height}, text, TextFit::wrap, appearance);
}

}  // namespace tarvel
