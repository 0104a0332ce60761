#include "schedule/ScheduleGridPainter.h"

#include <QPainter>

#include "schedule/DevicePixels.h"
#include "ui/AttributedText.h"

namespace tarvel {
namespace {

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

void paintTick(QPainter& painter, const AxisPicture& picture, const AxisTick& tick) {
  const ScheduleGrid& grid = picture.grid;
  const DevicePixels pixels(painter);
  if (picture.labels != AxisLabels::printed && picture.lines == AxisLines::across)
    pixels.horizontalLine(grid.left, grid.right, tick.y, toQColor(kFaintGridColor));
  pixels.horizontalLine(grid.left - kTickLength, grid.left, tick.y, toQColor(kGridColor));
  pixels.horizontalLine(grid.right, grid.right + kTickLength, tick.y, toQColor(kGridColor));
  const AttributedText label(tick.text, attributesOf(picture.labels));
  const Size size = boundingRect(label, {}, TextFit::wrap);
  draw(painter, {grid.left - kTimeLabelGap - size.width, tick.y - size.height / 2, size.width, size.height},
       label, TextFit::wrap, picture.appearance);
}

}  // namespace

void paintAxis(QPainter& painter, const AxisPicture& picture, const Rect& dirty) {
  // A label reaches above and below its line by half its height, which is less than the axis' distance from
  // the top.
  const Rect reach = dirty.inset(0.0, -kAxisOrigin);
  for (const AxisTick& tick : picture.grid.axis.ticks(picture.labelStep)) {
    if (tick.y >= reach.y && tick.y <= reach.maxY()) paintTick(painter, picture, tick);
  }
}

void paintColumnLines(QPainter& painter, const ScheduleGrid& grid) {
  const DevicePixels pixels(painter);
  for (std::int64_t k = 0; k <= grid.columns; ++k) {
    pixels.verticalLine(grid.columnX(k), 0.0, grid.frame.height, toQColor(kBlack));
  }
}

}  // namespace tarvel
