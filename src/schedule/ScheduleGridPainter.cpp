#include "schedule/ScheduleGridPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "schedule/DevicePixels.h"
#include "ui/AttributedText.h"

namespace tarvel {
namespace {

/// Between the view's edge and the labels.
constexpr double kLabelMargin = 2.0;
const TextAttributes kLabelAttributes{10.0};
const TextAttributes kReducedLabelAttributes{9.0};
const TextAttributes kPrintedLabelAttributes{7.0, FontWeight::regular, kBlack};

const TextAttributes& attributesOf(AxisLabels labels) {
  switch (labels) {
    case AxisLabels::normal:
      return kLabelAttributes;
    case AxisLabels::reduced:
      return kReducedLabelAttributes;
    case AxisLabels::printed:
      break;
  }
  return kPrintedLabelAttributes;
}

/// So large that the widest of the labels has room beside the columns.
TextAttributes labelAttributes(const AxisPicture& picture, const std::vector<AxisTick>& ticks) {
  TextAttributes attributes = attributesOf(picture.labels);
  if (textScale() == 1.0) return attributes;
  double widest = 0.0;
  for (const AxisTick& tick : ticks)
    widest = std::max(widest, boundingRect(AttributedText(tick.text, attributes), {}, TextFit::wrap).width);
  const double room = picture.grid.left - kTimeLabelGap - kLabelMargin;
  if (widest > room)
    attributes.fontSize = std::floor(attributes.fontSize * textScale() * room / widest) / textScale();
  return attributes;
}

void paintTick(QPainter& painter, const AxisPicture& picture, const AxisTick& tick,
               const TextAttributes& attributes) {
  const ScheduleGrid& grid = picture.grid;
  const DevicePixels pixels(painter);
  if (picture.labels != AxisLabels::printed && picture.lines == AxisLines::across)
    pixels.horizontalLine(grid.left, grid.right, tick.y, color(kFaintScheduleGrid, picture.appearance));
  const QColor line = color(kScheduleGrid, picture.appearance);
  pixels.horizontalLine(grid.left - kTickLength, grid.left, tick.y, line);
  pixels.horizontalLine(grid.right, grid.right + kTickLength, tick.y, line);
  const AttributedText label(tick.text, attributes);
  const Size size = boundingRect(label, {}, TextFit::wrap);
  draw(painter, {grid.left - kTimeLabelGap - size.width, tick.y - size.height / 2, size.width, size.height},
       label, TextFit::wrap, picture.appearance);
}

}  // namespace

void paintAxis(QPainter& painter, const AxisPicture& picture, const Rect& dirty) {
  // A label reaches above and below its line by half its height, which is less than the axis' distance from
  // the top.
  const Rect reach = dirty.inset(0.0, -kAxisOrigin);
  const std::vector<AxisTick> ticks = picture.grid.axis.ticks(picture.labelStep);
  const TextAttributes attributes = labelAttributes(picture, ticks);
  for (const AxisTick& tick : ticks) {
    if (tick.y >= reach.y && tick.y <= reach.maxY()) paintTick(painter, picture, tick, attributes);
  }
}

void paintColumnLines(QPainter& painter, const ScheduleGrid& grid, Appearance appearance) {
  const DevicePixels pixels(painter);
  for (std::int64_t k = 0; k <= grid.columns; ++k) {
    pixels.verticalLine(grid.columnX(k), 0.0, grid.frame.height, color(kScheduleColumns, appearance));
  }
}

}  // namespace tarvel
