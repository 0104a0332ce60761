#include "schedule/DailyScheduleView.h"

#include <algorithm>

#include "schedule/DailyPainter.h"
#include "schedule/ScheduleMessage.h"

namespace tarvel {
namespace {

constexpr std::int64_t kDaysPerWeek = 7;

}  // namespace

DailyScheduleView::DailyScheduleView(const WindowContext& context, ScheduleViewOwner& owner, QWidget* parent)
    : SchedulePageView(context, owner, "DailyScheduleView", parent) {
  setAccessibleName(QStringLiteral("Daily schedule"));
}

void DailyScheduleView::chosenRinkChanged(const RinkData*) {
  // Those of the rink before don't outlive it in use.
  chosenVenues_.clear();
}

void DailyScheduleView::setChosenVenues(const std::vector<std::int64_t>& venueIDs) {
  Venues venues = venuesOf(chosenRink().get(), venueIDs);
  if (venues == chosenVenues_) return;
  chosenVenues_ = std::move(venues);
  needsData();
}

void DailyScheduleView::setShowingDate(PackedDate date) {
  if (date == showingDate_) return;
  showingDate_ = date;
  needsData();
}

DayRange DailyScheduleView::dayRange() const {
  DayRange range = dayRangeOf({});
  for (const ScheduleItems& items : contents_.columns) {
    const DayRange wanted = dayRangeOf(items);
    range.startOfDay = std::min(range.startOfDay, wanted.startOfDay);
    range.endOfDay = std::max(range.endOfDay, wanted.endOfDay);
  }
  return range;
}

bool DailyScheduleView::concerns(std::int64_t, PackedDate weekOf) const {
  return showingDate_ >= weekOf && showingDate_ < addDays(weekOf, kDaysPerWeek);
}

void DailyScheduleView::readSchedules() {
  // A rink that is gone has taken with it what its venues' weeks refer to.
  contents_ = dayContents(chosenRink() ? chosenVenues_ : Venues(), showingDate_);
  widest_ = measureDay(contents_.columns, styles());
  std::size_t items = 0;
  for (const ScheduleItems& column : contents_.columns) items += column.size();
  setAccessibleDescription(QStringLiteral("%1, %2 venues, %3 sessions")
                               .arg(QString::fromStdString(fullDateText(showingDate_)))
                               .arg(chosenVenues_.size())
                               .arg(items));
}

double DailyScheduleView::heightForAvailableHeight(double height) const {
  return DailyLayout::heightForAvailableHeight(height, wantedInput());
}

void DailyScheduleView::adjustSize() {
  if (!owner()) return;
  if (readSettings()) widest_ = measureDay(contents_.columns, styles());
  layout_ =
      DailyLayout({pageInput(), showingDate_, static_cast<std::int64_t>(chosenVenues_.size()), widest_});
  setNeedsDisplay(true);
  placeTimeMarker();
}

void DailyScheduleView::pageDidBecomeCurrent() {
  if (!isAwaitingData) return;
  loadData();
  setNeedsDisplay(true);
  repaint();
}

std::optional<Rect> DailyScheduleView::timeMarkerRect() const {
  return layout_.timeMarkerRect(currentDate(), currentTime());
}

std::int64_t DailyScheduleView::venueOfColumn(std::int64_t column) const {
  // Until it is laid out anew, the page has the columns it had.
  const auto index = static_cast<std::size_t>(column);
  return index < chosenVenues_.size() ? chosenVenues_[index]->venueID : 0;
}

ScheduleSpot DailyScheduleView::spotAt(const GridHit& hit) const {
  const auto column = static_cast<std::size_t>(hit.column);
  if (column >= contents_.columns.size()) return {};
  return findSpot(contents_.columns[column], weekdayOf(showingDate_), hit.minute);
}

ScheduleItems DailyScheduleView::itemsOfColumn(std::int64_t column) const {
  const auto index = static_cast<std::size_t>(column);
  return index < contents_.columns.size() ? contents_.columns[index] : ScheduleItems();
}

std::string DailyScheduleView::columnName(std::int64_t column) const {
  const auto index = static_cast<std::size_t>(column);
  return index < chosenVenues_.size() ? chosenVenues_[index]->displayName() : std::string();
}

void DailyScheduleView::draw(QPainter& painter, const Rect& dirty) {
  const Appearance appearance = appearanceOf(this);
  if (!chosenRink()) {
    paintScheduleMessage(painter, kNoRinkSelected, layout_.grid().frame, appearance);
    return;
  }
  paintDay(painter, {layout_, contents_.columns, styles(), dataModel(), currentDate(), appearance}, dirty);
  drawFocus(painter);
}

}  // namespace tarvel
