#include "schedule/DailyLayout.h"

#include <algorithm>

namespace tarvel {
namespace {

double marginOf(Medium medium) {
  return medium == Medium::page ? kPrintedScheduleMargin : kScheduleMargin;
}

}  // namespace

DailyLayout::DailyLayout(const DailyLayoutInput& input) : input_(input) {
  const SchedulePageInput& page = input.page;
  const double margin = marginOf(page.medium);
  reducedSize_ = page.frame.width < kLeftMargin + kReducedBelow + kLabelColumn + margin;
  grid_.axis = page.axis(kDailyAxisOrigin, margin);
  grid_.left = kLeftMargin + labelColumnWidth();
  grid_.right = page.frame.width - margin;
  grid_.columns = input.venues;
  if (input.venues > 0) grid_.columnWidth = (grid_.right - grid_.left) / static_cast<double>(input.venues);
  grid_.frame = page.frame;
  chooseParts();
}

void DailyLayout::chooseParts() {
  timeColWidth_ = std::max(kLeastTimeColumn, input_.widest.times + kPartRoom);
  durationColWidth_ = std::max(kLeastDurationColumn, input_.widest.duration + kPartRoom);
  if (columnWidth() - timeColWidth_ - durationColWidth_ < kLeastName) durationColWidth_ = 0.0;
  if (durationColWidth_ == 0.0 && columnWidth() - timeColWidth_ < kLeastName) timeColWidth_ = 0.0;
}

DailyDetail DailyLayout::detail() const {
  if (timeColWidth_ == 0.0) return DailyDetail::name;
  return durationColWidth_ == 0.0 ? DailyDetail::timesAndName : DailyDetail::timesNameAndDuration;
}

std::vector<PlacedItem> DailyLayout::itemsMeeting(const DailyColumns& columns, const Rect& dirty) const {
  std::vector<PlacedItem> placed;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    for (const auto& item : columns[column])
      grid_.addIfMeeting(placed, static_cast<std::int64_t>(column), *item, dirty);
  }
  return placed;
}

Rect DailyLayout::durationRect(const Rect& item) const {
  return {item.maxX() - kPartGap - durationColWidth_, item.y, durationColWidth_, item.height};
}

Rect DailyLayout::nameRect(const Rect& item) const {
  if (detail() == DailyDetail::name) return item.inset(kNameInset, 0.0);
  return {item.x + timeColWidth_ + kPartGap, item.y,
          item.width - timeColWidth_ - durationColWidth_ - kPartGap, item.height};
}

AxisLabels DailyLayout::labels() const {
  if (medium() == Medium::page) return AxisLabels::printed;
  return reducedSize_ ? AxisLabels::reduced : AxisLabels::normal;
}

std::optional<Rect> DailyLayout::pastRect(PackedDate currentDate) const {
  // No date comes before every other.
  if (input_.showingDate >= currentDate) return std::nullopt;
  return Rect{grid_.left, 0.0, grid_.right - grid_.left, grid_.frame.height};
}

std::optional<Rect> DailyLayout::timeMarkerRect(PackedDate currentDate, std::int64_t currentTime) const {
  const bool isToday = currentDate != kNoDate && currentDate == input_.showingDate;
  if (medium() == Medium::page || !isToday || !grid_.axis.covers(currentTime)) return std::nullopt;
  return Rect{grid_.left - kTimeMarkerWidth, grid_.axis.y(currentTime) - kTimeMarkerHeight / 2,
              grid_.right - grid_.left + 2 * kTimeMarkerWidth, kTimeMarkerHeight};
}

double DailyLayout::heightForAvailableHeight(double height, const SchedulePageInput& input) {
  return input.heightForAvailableHeight(height, kDailyAxisOrigin, marginOf(input.medium));
}

}  // namespace tarvel
