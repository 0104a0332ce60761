#include "schedule/WeeklyScheduleView.h"

#include <algorithm>
#include <iterator>

#include "schedule/ScheduleContents.h"
#include "schedule/ScheduleMessage.h"
#include "schedule/WeeklyPainter.h"

namespace tarvel {

WeeklyScheduleView::WeeklyScheduleView(const WindowContext& context, ScheduleViewOwner& owner,
                                       QWidget* parent)
    : SchedulePageView(context, owner, "WeeklyScheduleView", parent),
      items_(std::make_shared<const ScheduleItems>()) {
  setAccessibleName(QStringLiteral("Weekly schedule"));
}

void WeeklyScheduleView::chosenRinkChanged(const RinkData* rink) {
  if (rink) takeCurrentDate(rink->dateNow(), rink->timeNow());
}

void WeeklyScheduleView::setChosenVenueID(std::int64_t venueID) {
  if (venueID == chosenVenueID_) return;
  chosenVenueID_ = venueID;
  needsData();
}

void WeeklyScheduleView::setWeekContaining(PackedDate date) {
  const PackedDate sunday = startOfWeek(date);
  if (sunday == weekOf_) return;
  weekOf_ = sunday;
  selectedDate_ = kNoDate;
  needsData();
}

bool WeeklyScheduleView::showsDate(PackedDate date) const {
  return date != kNoDate && startOfWeek(date) == weekOf_;
}

void WeeklyScheduleView::setSelectedDate(PackedDate date) {
  const PackedDate mine = showsDate(date) ? date : kNoDate;
  if (mine == selectedDate_) return;
  selectedDate_ = mine;
  setNeedsDisplay(true);
  accessibleSelectionChanged();
}

void WeeklyScheduleView::setCurrentDate(PackedDate date, std::int64_t time) {
  if (chosenRink()) SchedulePageView::setCurrentDate(date, time);
}

bool WeeklyScheduleView::concerns(std::int64_t venueID, PackedDate weekOf) const {
  return venueID == chosenVenueID_ && weekOf == weekOf_;
}

void WeeklyScheduleView::mainStateChanged(bool isMain) {
  SchedulePageView::mainStateChanged(isMain);
  if (selectedDate_ != kNoDate) needsRedraw();
  if (isMain) updateItemInfo();
}

void WeeklyScheduleView::readSchedules() {
  const auto rink = chosenRink();
  const auto first = rink && chosenVenueID_ == 0 ? firstVenue(*rink) : nullptr;
  if (first) chosenVenueID_ = first->venueID;
  const WeekContents contents = weekContents(rink.get(), chosenVenueID_, weekOf_);
  weeklySchedule_ = contents.schedule;
  items_ = contents.items;
  setAccessibleDescription(QStringLiteral("Week of %1, %2 sessions")
                               .arg(QString::fromStdString(shortDateText(weekOf_)))
                               .arg(items_->size()));
}

double WeeklyScheduleView::heightForAvailableHeight(double height) const {
  return WeeklyLayout::heightForAvailableHeight(height, wantedInput());
}

void WeeklyScheduleView::adjustSize() {
  if (!owner() || isAwaitingData) return;
  readSettings();
  layout_ = WeeklyLayout({pageInput(), weekOf_});
  setNeedsDisplay(true);
  placeTimeMarker();
  if (isCurrentPage()) owner()->redrawScheduleHeader();
}

void WeeklyScheduleView::pageDidBecomeCurrent() {
  if (isAwaitingData) loadData();
  setNeedsDisplay(true);
  repaint();
}

std::optional<Rect> WeeklyScheduleView::timeMarkerRect() const {
  return layout_.timeMarkerRect(currentDate(), currentTime());
}

ScheduleSpot WeeklyScheduleView::spotAt(const GridHit& hit) const {
  return findSpot(*items_, hit.column, hit.minute);
}

ScheduleItems WeeklyScheduleView::itemsOfColumn(std::int64_t column) const {
  ScheduleItems items;
  std::copy_if(items_->begin(), items_->end(), std::back_inserter(items),
               [column](const auto& item) { return item->day == column; });
  return items;
}

void WeeklyScheduleView::draw(QPainter& painter, const Rect& dirty) {
  if (!owner()) return;
  const auto schedule = weeklySchedule_.lock();
  const WeeklyPicture picture{
      layout_,       *items_,       styles(),       dataModel(),       owner()->showSessionTimes(),
      currentDate(), selectedDate_, isMainWindow(), appearanceOf(this)};
  paintWeekOrMessage(painter, chosenRink().get(), schedule.get(), picture, dirty);
  drawFocus(painter);
}

}  // namespace tarvel
