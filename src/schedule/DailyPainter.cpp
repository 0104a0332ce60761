#include "schedule/DailyPainter.h"

#include <QPainter>

#include "model/DataModel.h"
#include "schedule/DevicePixels.h"
#include "schedule/ScheduleGridPainter.h"
#include "schedule/ScheduleItemText.h"

namespace tarvel {
namespace {

/// Times stand on one line and may reach beyond the column, which cuts them.
constexpr double kTimesWidth = 500.0;

TextAttributes aligned(const TextAttributes& attributes, const ParagraphStyle& style) {
  TextAttributes result = attributes;
  result.paragraph = style;
  return result;
}

void paintDailyItem(QPainter& painter, const DailyPicture& picture, const PlacedItem& placed) {
  const auto& [item, rect] = placed;
  const DailyLayout& layout = picture.layout;
  const Color color = picture.dataModel.sessionColor(static_cast<std::int64_t>(item->kind));
  paintItemBlock(painter, rect, color, kItemFrameColor);
  const ItemClip clip(painter, rect);
  const TextAttributes left = aligned(picture.styles.nameOf(*item), kLeftStyle);
  const DailyDetail detail = layout.detail();
  if (detail != DailyDetail::name) {
    paintItemText(painter, {rect.x, rect.y, kTimesWidth, rect.height},
                  AttributedText(itemTimesText(*item), left));
  }
  if (detail == DailyDetail::timesNameAndDuration) {
    paintItemText(painter, layout.durationRect(rect),
                  AttributedText(itemDurationText(*item), aligned(left, kRightStyle)));
  }
  const bool nameAlone = detail == DailyDetail::name;
  const bool inTheMiddle = detail == DailyDetail::timesNameAndDuration;
  paintItemText(painter, layout.nameRect(rect),
                AttributedText(nameAlone ? item->displayName("\n") : itemLineText(*item),
                               inTheMiddle ? aligned(left, kCentredStyle) : left));
  if (!item->note.empty() && layout.medium() == Medium::screen) paintNoteCorner(painter, rect);
}

}  // namespace

ItemTextWidths measureDay(const DailyColumns& columns, const ItemStyles& styles) {
  const FixedTextScale ownSize;
  return measureItemTexts(columns, styles.name);
}

void paintDay(QPainter& painter, const DailyPicture& picture, const Rect& dirty) {
  const DailyLayout& layout = picture.layout;
  for (const PlacedItem& placed : layout.itemsMeeting(picture.columns, dirty)) {
    paintDailyItem(painter, picture, placed);
  }
  paintAxis(painter, {layout.grid(), layout.labelStep(), layout.labels(), picture.appearance}, dirty);
  paintColumnLines(painter, layout.grid(), picture.appearance);
  if (const auto past = layout.pastRect(picture.currentDate)) {
    DevicePixels(painter).fill(*past, color(kPastBlend, picture.appearance));
  }
}

}  // namespace tarvel
