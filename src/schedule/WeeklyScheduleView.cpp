#include "schedule/WeeklyScheduleView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <cmath>

#include "schedule/ItemInfoText.h"
#include "schedule/WeeklyPainter.h"

namespace tarvel {
namespace {

const std::shared_ptr<const ScheduleItems>& noItems() {
  static const auto none = std::make_shared<const ScheduleItems>();
  return none;
}

Point pointOf(const QPointF& point) {
  return {point.x(), point.y()};
}

}  // namespace

WeeklyScheduleView::WeeklyScheduleView(const WindowContext& context, ScheduleViewOwner& owner,
                                       QWidget* parent)
    : PagedView(context.services.notifications, parent),
      dataModel_(context.dataModel),
      owner_(&owner),
      styles_(ItemStyles::onScreen(kDefaultItemFontSize)),
      items_(noItems()),
      mainState_(*this, [this](bool isMain) { mainStateChanged(isMain); }) {
  setMouseTracking(true);
  setAccessibleName(QStringLiteral("Weekly schedule"));
  observe(context);
}

void WeeklyScheduleView::observe(const WindowContext& context) {
  NotificationCenter& center = context.services.notifications;
  const auto on = [&](NotificationName name, NotificationCenter::Handler handler) {
    observations_.push_back(center.observe(name, std::move(handler)));
  };
  const auto redraw = [this](const Notification&) { needsRedraw(); };
  const auto rinkDataChanged = [this](const Notification& notification) { rinkChanged(notification); };
  on(kScheduleNamesChanged, redraw);
  on(kScheduleColorsChanged, redraw);
  on(kVenuesChanged, rinkDataChanged);
  on(kSchedulesChanged, rinkDataChanged);
  on(kWeeklyScheduleChanged,
     [this](const Notification& notification) { weeklyScheduleChanged(notification); });
  on(kCurrentDateChanged, redraw);
  on(kCheckObservers, [&census = context.observerCensus](const Notification&) {
    census.checkObservers("WeeklyScheduleView");
  });
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
}

void WeeklyScheduleView::rinkChanged(const Notification& notification) {
  const auto rink = chosenRink_.lock();
  if (rink && notification.object.is(rink.get())) needsData();
}

void WeeklyScheduleView::weeklyScheduleChanged(const Notification& notification) {
  const bool mine = notification.integer(kVenueIDKey) == chosenVenueID_ &&
                    notification.integer(kWeekOfKey) == static_cast<std::int64_t>(weekOf());
  if (mine) rinkChanged(notification);
}

void WeeklyScheduleView::mainStateChanged(bool isMain) {
  if (selectedDate_ != kNoDate) needsRedraw();
  if (isMain) {
    updateItemInfo();
  } else if (isCurrentPage()) {
    mouseItem_ = nullptr;
    owner_->showItemInfo({});
  }
}

void WeeklyScheduleView::setChosenRink(const std::shared_ptr<RinkData>& rink) {
  if (rink == chosenRink_.lock()) return;
  chosenRink_ = rink;
  if (rink) {
    currentDate_ = rink->dateNow();
    currentTime_ = rink->timeNow();
  }
  needsData();
}

void WeeklyScheduleView::setChosenVenueID(std::int64_t venueID) {
  if (venueID == chosenVenueID_) return;
  chosenVenueID_ = venueID;
  needsData();
}

void WeeklyScheduleView::setWeekContaining(PackedDate date) {
  const PackedDate sunday = startOfWeek(date);
  if (sunday == weekOf()) return;
  input_.weekOf = sunday;
  selectedDate_ = kNoDate;
  needsData();
}

bool WeeklyScheduleView::weekHolds(PackedDate date) const {
  return date != kNoDate && startOfWeek(date) == weekOf();
}

bool WeeklyScheduleView::setDayRange(const DayRange& range) {
  if (range == DayRange{input_.startOfDay, input_.endOfDay}) return false;
  input_.startOfDay = range.startOfDay;
  input_.endOfDay = range.endOfDay;
  return true;
}

void WeeklyScheduleView::setSelectedDate(PackedDate date) {
  const PackedDate mine = weekHolds(date) ? date : kNoDate;
  if (mine == selectedDate_) return;
  selectedDate_ = mine;
  setNeedsDisplay(true);
}

void WeeklyScheduleView::setCurrentDate(PackedDate date, std::int64_t time) {
  if (chosenRink_.expired()) return;
  const bool dayTurned = date != currentDate_ && (weekHolds(date) || weekHolds(currentDate_));
  const bool timePassed = time != currentTime_ && weekHolds(date);
  currentDate_ = date;
  currentTime_ = time;
  if (dayTurned) setNeedsDisplay(true);
  if (dayTurned || timePassed) placeTimeMarker();
}

void WeeklyScheduleView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  weeklySchedule_.reset();
  items_ = noItems();
  const auto rink = chosenRink_.lock();
  if (rink && chosenVenueID_ == 0) chooseFirstVenue(*rink);
  if (rink && weekOf() >= rink->firstWeek && weekOf() <= rink->lastWeek) {
    const auto venue = rink->venue(chosenVenueID_);
    if (const auto schedule = venue ? venue->weeklySchedule(weekOf()) : nullptr) {
      weeklySchedule_ = schedule;
      if (const auto items = schedule->items()) items_ = items;
    }
  }
  const bool isCurrent = isCurrentPage();
  if (isCurrent) owner_->updateDayRange();
  adjustSize();
  setNeedsDisplay(true);
  if (isCurrent) updateItemInfo();
  describe();
}

void WeeklyScheduleView::chooseFirstVenue(const RinkData& rink) {
  const Venue* first = nullptr;
  for (const auto& venue : rink.venues) {
    if (!first || venue->displayOrder < first->displayOrder) first = venue.get();
  }
  if (first) chosenVenueID_ = first->venueID;
}

void WeeklyScheduleView::describe() {
  setAccessibleDescription(QStringLiteral("Week of %1, %2 sessions")
                               .arg(QString::fromStdString(shortDateText(weekOf())))
                               .arg(items_->size()));
}

void WeeklyScheduleView::setPresented(bool presented) {
  PagedView::setPresented(presented);
  placeTimeMarker();
}

double WeeklyScheduleView::heightForAvailableHeight(double height) const {
  WeeklyLayoutInput input = input_;
  if (owner_) input.verticalFit = owner_->fitVertically();
  return WeeklyLayout::heightForAvailableHeight(height, input);
}

void WeeklyScheduleView::adjustSize() {
  if (!owner_ || isAwaitingData) return;
  input_.verticalFit = owner_->fitVertically();
  if (fontSize_ != owner_->weeklyFontSize()) {
    fontSize_ = owner_->weeklyFontSize();
    styles_ = ItemStyles::onScreen(fontSize_);
  }
  input_.frame = {static_cast<double>(width()), static_cast<double>(height())};
  layout_ = WeeklyLayout(input_);
  setNeedsDisplay(true);
  placeTimeMarker();
  if (isCurrentPage()) owner_->redrawScheduleHeader();
}

void WeeklyScheduleView::pageDidChangeSettings() {
  adjustSize();
}

void WeeklyScheduleView::pageDidBecomeCurrent() {
  if (isAwaitingData) loadData();
  setNeedsDisplay(true);
  repaint();
}

void WeeklyScheduleView::close() {
  isClosing = true;
  observations_.clear();
  wakeSubscription_.reset();
  owner_ = nullptr;
}

void WeeklyScheduleView::placeTimeMarker() {
  const auto rect = chosenRink_.expired() ? std::nullopt : layout_.timeMarkerRect(currentDate_, currentTime_);
  if (!rect) {
    if (timeMarkerView_) timeMarkerView_->hide();
    return;
  }
  if (!timeMarkerView_) timeMarkerView_ = new TimeMarkerView(layout_.columnWidth(), this);
  timeMarkerView_->setMarkerRect(*rect);
  timeMarkerView_->show();
}

void WeeklyScheduleView::scrollTo(std::int64_t minute) {
  const QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  const double visible = area->viewport()->height();
  area->verticalScrollBar()->setValue(static_cast<int>(std::lround(layout_.scrollOffset(minute, visible))));
}

QColor WeeklyScheduleView::backgroundColor() const {
  return color(kScheduleBackground, this);
}

void WeeklyScheduleView::draw(QPainter& painter, const Rect& dirty) {
  if (!owner_ || drawMessage(painter)) return;
  const WeeklyPicture picture{layout_,
                              *items_,
                              styles_,
                              dataModel_,
                              owner_->showSessionTimes(),
                              currentDate_,
                              selectedDate_,
                              mainState_.isMain(),
                              input_.frame,
                              appearanceOf(this)};
  paintWeek(painter, picture, dirty);
}

bool WeeklyScheduleView::drawMessage(QPainter& painter) const {
  const Size size{static_cast<double>(width()), static_cast<double>(height())};
  const Appearance appearance = appearanceOf(this);
  if (chosenRink_.expired()) {
    paintScheduleMessage(painter, "No Rink Selected", size, appearance);
    return true;
  }
  const auto schedule = weeklySchedule_.lock();
  if (!schedule) return true;
  const DownloadStatus& status = schedule->downloadStatus();
  switch (status.kind) {
    case DownloadStatus::Kind::idle:
      return false;
    case DownloadStatus::Kind::requested:
      paintScheduleMessage(painter, "Download in progress...", size, appearance);
      break;
    case DownloadStatus::Kind::invalidData:
      paintScheduleMessage(painter, "Invalid Data Received", size, appearance);
      break;
    case DownloadStatus::Kind::failed:
      paintScheduleFailure(painter, "Download Failed\n" + status.text, size, appearance);
      break;
  }
  return true;
}

void WeeklyScheduleView::resizeEvent(QResizeEvent* event) {
  PagedView::resizeEvent(event);
  adjustSize();
}

void WeeklyScheduleView::moveEvent(QMoveEvent* event) {
  PagedView::moveEvent(event);
  // The view moves within its scroll area: another item may have come under the mouse.
  if (isCurrentPage()) updateItemInfo();
}

void WeeklyScheduleView::changeEvent(QEvent* event) {
  PagedView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) needsRedraw();
}

void WeeklyScheduleView::mouseMoveEvent(QMouseEvent* event) {
  updateItemInfo(pointOf(event->position()));
}

void WeeklyScheduleView::leaveEvent(QEvent*) {
  if (isCurrentPage()) updateItemInfo();
}

void WeeklyScheduleView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) handleClick(pointOf(event->position()), Click::single);
}

void WeeklyScheduleView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) handleClick(pointOf(event->position()), Click::twice);
}

void WeeklyScheduleView::handleClick(Point point, Click click) {
  if (!owner_) return;
  const auto hit = layout_.hit(point);
  if (!hit || weekOf() == kNoDate) {
    owner_->setSelectedDate(kNoDate);
    return;
  }
  const PackedDate date = addDays(weekOf(), hit->day);
  owner_->setSelectedDate(date);
  if (click == Click::twice) {
    owner_->gotoScheduleItem(chosenVenueID_, date, hit->minute);
  } else {
    setNeedsDisplay(true);
  }
}

void WeeklyScheduleView::updateItemInfo() {
  updateItemInfo(pointOf(mapFromGlobal(QPointF(QCursor::pos()))));
}

void WeeklyScheduleView::updateItemInfo(Point point) {
  if (!owner_ || isAwaitingData) return;
  mouseItem_ = nullptr;
  const bool wanted = mainState_.isMain() && owner_->itemInfoShown();
  owner_->showItemInfo(wanted ? infoAt(point) : std::string());
}

std::string WeeklyScheduleView::infoAt(Point point) {
  const QRect visible = visibleRegion().boundingRect();
  const auto hit = layout_.hit(point);
  if (!hit || chosenVenueID_ == 0 || !visible.contains(QPointF(point.x, point.y).toPoint())) return {};
  const ScheduleSpot spot = findSpot(*items_, hit->day, hit->minute);
  switch (spot.kind) {
    case ScheduleSpot::Kind::nothing:
      return {};
    case ScheduleSpot::Kind::gap:
      return gapInfoText(spot, addDays(weekOf(), hit->day));
    case ScheduleSpot::Kind::item:
      break;
  }
  mouseItem_ = spot.item;
  return itemInfoText(*spot.item, weekOf(),
                      dataModel_.sessionName(static_cast<std::int64_t>(spot.item->kind)));
}

}  // namespace tarvel
