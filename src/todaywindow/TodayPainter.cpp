#include "todaywindow/TodayPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "model/DataModel.h"
#include "model/WeeklySchedule.h"
#include "schedule/DevicePixels.h"
#include "schedule/ItemPainter.h"
#include "schedule/ScheduleGridPainter.h"
#include "schedule/ScheduleItemText.h"

namespace tarvel {
namespace {

/// What a note may use beyond the room it was measured in.
constexpr double kNoteExtraWidth = 8.0;
constexpr std::string_view kTimesSeparator = " - ";
/// The height that a line's letters take, by the size of the font.
constexpr double kLetterHeight = 1.3;
/// Letters smaller than this can't be told apart.
constexpr double kLeastFontSize = 6.0;
constexpr double kFontSizeStep = 0.5;
// The bars' texts stand on the sessions' own colours.
constexpr Appearance kAnyAppearance = Appearance::light;

const TextAttributes kMessageText{11.0, FontWeight::regular, kSecondaryLabel, kCentredStyle};

/// A bar that is too low for the chosen size has its text as large as it holds: letters that are cut off are
/// read from nowhere. None if it holds no letters at all.
std::optional<TextAttributes> fitted(const TextAttributes& attributes, double height) {
  const double largest = std::floor(height / kLetterHeight / kFontSizeStep) * kFontSizeStep;
  TextAttributes result = attributes;
  if (attributes.fontSize * kLetterHeight <= height) return result;
  if (largest < kLeastFontSize) return std::nullopt;
  result.fontSize = std::min(attributes.fontSize, largest);
  return result;
}

/// The times with am and pm, on two lines where one is too narrow. A bar that is too low for two has them on
/// one line without: half a time would be another time.
AttributedText timesOf(const ScheduleItem& item, const Rect& rect, const TextAttributes& attributes) {
  std::string times = itemTimesText(item);
  AttributedText oneLine(times, attributes);
  if (boundingRect(oneLine, {}, TextFit::wrap).width <= rect.width) return oneLine;
  times.replace(times.find(kTimesSeparator), kTimesSeparator.size(), " -\n");
  AttributedText twoLines(times, attributes);
  if (boundingRect(twoLines, {rect.width, 0.0}, TextFit::wrap).height <= rect.height) return twoLines;
  return {itemClockText(item), attributes};
}

void paintNote(QPainter& painter, const TodayPicture& picture, const PlacedItem& placed,
               double descriptionWidth) {
  const auto& [item, bar] = placed;
  const auto room = picture.layout.noteRect(bar, descriptionWidth);
  // It stays smaller than the name where both are made smaller.
  const TodayStyles& styles = picture.styles;
  const double share = std::min(1.0, styles.note.fontSize / styles.name.fontSize);
  auto look = fitted(styles.note, share * bar.height);
  if (!room || !look) return paintNoteCorner(painter, picture.layout.descriptionColumn(bar));
  // The note's own grey is faint on the darker of the sessions' colours.
  if (contrast() == Contrast::high) look->color = kBlack;
  const AttributedText note(item->note, *look);
  const double height = boundingRect(note, {room->width, room->height}, TextFit::wrapAndTruncate).height;
  draw(painter, {room->x, room->y + (room->height - height) / 2, room->width + kNoteExtraWidth, height}, note,
       TextFit::wrapAndTruncate, kAnyAppearance);
}

void paintBar(QPainter& painter, const TodayPicture& picture, const PlacedItem& placed) {
  const auto& [item, bar] = placed;
  const TodayLayout& layout = picture.layout;
  const bool isResurface = item->kind == SessionKind::resurface;
  const TodayStyles& styles = picture.styles;
  const auto times = fitted(isResurface ? styles.resurfaceTime : styles.time, bar.height);
  const auto name = fitted(isResurface ? styles.resurface : styles.name, bar.height);
  paintItemBlock(painter, bar, picture.dataModel.sessionColor(static_cast<std::int64_t>(item->kind)),
                 itemFrameColor(item->kind));
  const ItemClip clip(painter, bar);
  const Rect timesRect = layout.timesRect(bar);
  if (times) paintItemText(painter, timesRect, timesOf(*item, timesRect, *times));
  if (times && !isResurface)
    paintItemText(painter, layout.durationRect(bar), AttributedText(itemDurationText(*item), *times));
  const Rect room = layout.descriptionRect(bar);
  const AttributedText description = name ? AttributedText(itemLineText(*item), *name) : AttributedText();
  paintItemText(painter, room, description);
  if (item->note.empty()) return;
  const bool isWritten = !room.empty() && !description.empty();
  const Size taken =
      isWritten ? boundingRect(description, {room.width, room.height}, TextFit::wrapAndTruncate) : Size{};
  paintNote(painter, picture, placed, taken.width);
}

void paintLines(QPainter& painter, const TodayLayout& layout, Appearance appearance) {
  const DevicePixels pixels(painter);
  for (const double x : layout.columnLines()) {
    pixels.verticalLine(x, layout.columnLineTop(), layout.columnLineBottom(),
                        color(kScheduleColumns, appearance));
  }
}

void paintMessage(QPainter& painter, const std::string& message, const TodayPicture& picture) {
  const TodayLayout& layout = picture.layout;
  const double width = layout.input().frame.width - TodayLayout::kRightMargin;
  const double room = layout.viewHeight() - TodayLayout::kAxisOrigin - TodayLayout::kBottomMargin;
  if (width <= 0.0 || room <= 0.0) return;
  const AttributedText text(message, kMessageText);
  const double height = boundingRect(text, {width, room}, TextFit::wrap).height;
  draw(painter, {0.0, (layout.viewHeight() - height) / 2, width, height}, text, TextFit::wrap,
       picture.appearance);
}

}  // namespace

ItemTextWidths measureToday(const ScheduleItems& items, const TodayStyles& styles) {
  const FixedTextScale ownSizes;
  return measureItemTexts({items}, styles.time);
}

void paintToday(QPainter& painter, const TodayPicture& picture, const Rect& dirty) {
  const FixedTextScale ownSizes;  // which the window's options set
  const TodayLayout& layout = picture.layout;
  for (const PlacedItem& placed : layout.itemsMeeting(picture.items, dirty)) {
    paintBar(painter, picture, placed);
  }
  const bool onPage = layout.input().medium == Medium::page;
  const AxisLabels labels = onPage ? AxisLabels::printed : AxisLabels::reduced;
  paintAxis(painter, {layout.grid(), layout.labelStep(), labels, picture.appearance, AxisLines::none}, dirty);
  paintLines(painter, layout, picture.appearance);
  const ScheduleItem* current = onPage ? nullptr : todayItemAt(picture.items, picture.currentTime);
  if (!current) return;
  const Rect bar = layout.barRect(*current);
  const double reach = TodayLayout::kCurrentFrameLine / 2;
  if (bar.inset(-reach, -reach).intersects(dirty))
    DevicePixels(painter).frame(bar, TodayLayout::kCurrentFrameLine,
                                color(kScheduleColumns, picture.appearance));
}

void paintTodayOrMessage(QPainter& painter, const WeeklySchedule* schedule, const TodayPicture& picture,
                         const Rect& dirty) {
  if (!schedule) return;
  const DownloadStatus& status = schedule->downloadStatus();
  switch (status.kind) {
    case DownloadStatus::Kind::idle:
      return paintToday(painter, picture, dirty);
    case DownloadStatus::Kind::requested:
      return paintMessage(painter, "Download in progress...", picture);
    case DownloadStatus::Kind::invalidData:
      return paintMessage(painter, "Not a valid image", picture);
    case DownloadStatus::Kind::failed:
      return paintMessage(painter, "Download Failed\n" + status.text, picture);
  }
}

}  // namespace tarvel
