#include "schedule/SchedulePageView.h"

#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <cmath>

#include "schedule/ItemInfoText.h"
#include "ui/FocusRing.h"

namespace tarvel {
namespace {

Point pointOf(const QPointF& point) {
  return {point.x(), point.y()};
}

}  // namespace

SchedulePageView::SchedulePageView(const WindowContext& context, ScheduleViewOwner& owner, const char* name,
                                   QWidget* parent)
    : PagedView(context.services.notifications, parent),
      dataModel_(context.dataModel),
      owner_(&owner),
      styles_(ItemStyles::onScreen(kDefaultItemFontSize)),
      mainState_(*this, [this](bool isMain) { mainStateChanged(isMain); }) {
  setMouseTracking(true);
  observe(context, name);
}

void SchedulePageView::observe(const WindowContext& context, const char* name) {
  NotificationCenter& center = context.services.notifications;
  const auto on = [&](NotificationName notification, NotificationCenter::Handler handler) {
    observations_.push_back(center.observe(notification, std::move(handler)));
  };
  const auto redraw = [this](const Notification&) { needsRedraw(); };
  const auto rinkDataChanged = [this](const Notification& notification) { rinkChanged(notification); };
  on(kScheduleNamesChanged, [this](const Notification&) {
    needsRedraw();
    accessibleContentChanged();
  });
  on(kScheduleColorsChanged, redraw);
  on(kVenuesChanged, rinkDataChanged);
  on(kSchedulesChanged, rinkDataChanged);
  on(kWeeklyScheduleChanged,
     [this](const Notification& notification) { weeklyScheduleChanged(notification); });
  on(kCurrentDateChanged, redraw);
  on(kCheckObservers,
     [&census = context.observerCensus, name](const Notification&) { census.checkObservers(name); });
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
}

void SchedulePageView::rinkChanged(const Notification& notification) {
  const auto rink = chosenRink_.lock();
  if (rink && notification.object.is(rink.get())) needsData();
}

void SchedulePageView::weeklyScheduleChanged(const Notification& notification) {
  const auto venueID = notification.integer(kVenueIDKey);
  const auto weekOf = notification.integer(kWeekOfKey);
  if (venueID && weekOf && concerns(*venueID, static_cast<PackedDate>(*weekOf))) rinkChanged(notification);
}

void SchedulePageView::mainStateChanged(bool isMain) {
  if (isMain || !isCurrentPage()) return;
  mouseItem_ = nullptr;
  owner_->showItemInfo({});
}

void SchedulePageView::setChosenRink(const std::shared_ptr<RinkData>& rink) {
  if (rink == chosenRink_.lock()) return;
  chosenRink_ = rink;
  chosenRinkChanged(rink.get());
  needsData();
}

bool SchedulePageView::setDayRange(const DayRange& range) {
  if (range == pageInput_.dayRange) return false;
  pageInput_.dayRange = range;
  // Where the day fits the height, the page keeps its size, which would have told it otherwise.
  adjustSize();
  return true;
}

void SchedulePageView::takeCurrentDate(PackedDate date, std::int64_t time) {
  currentDate_ = date;
  currentTime_ = time;
}

void SchedulePageView::setCurrentDate(PackedDate date, std::int64_t time) {
  const bool dayTurned = date != currentDate_ && (showsDate(date) || showsDate(currentDate_));
  const bool timePassed = time != currentTime_ && showsDate(date);
  takeCurrentDate(date, time);
  if (dayTurned) setNeedsDisplay(true);
  if (dayTurned || timePassed) placeTimeMarker();
}

void SchedulePageView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  readSchedules();
  if (isCurrentPage()) owner_->updateDayRange();
  adjustSize();
  setNeedsDisplay(true);
  updateItemInfo();
  accessibleContentChanged();
  findFocus();
}

void SchedulePageView::setPresented(bool presented) {
  PagedView::setPresented(presented);
  placeTimeMarker();
}

void SchedulePageView::pageDidChangeSettings() {
  adjustSize();
}

void SchedulePageView::close() {
  isClosing = true;
  accessibleContentChanged();
  observations_.clear();
  wakeSubscription_.reset();
  if (scroller_) disconnect(scroller_->verticalScrollBar(), nullptr, this, nullptr);
  owner_ = nullptr;
}

bool SchedulePageView::readSettings() {
  pageInput_ = wantedInput();
  pageInput_.frame = {static_cast<double>(width()), static_cast<double>(height())};
  if (!owner_ || fontSize_ == owner_->fontSize()) return false;
  fontSize_ = owner_->fontSize();
  styles_ = ItemStyles::onScreen(fontSize_);
  return true;
}

SchedulePageInput SchedulePageView::wantedInput() const {
  SchedulePageInput input = pageInput_;
  if (owner_) input.verticalFit = owner_->fitVertically();
  return input;
}

void SchedulePageView::placeTimeMarker() {
  const auto rect = chosenRink_.expired() ? std::nullopt : timeMarkerRect();
  if (!rect) {
    if (timeMarkerView_) timeMarkerView_->hide();
    return;
  }
  if (!timeMarkerView_) timeMarkerView_ = new TimeMarkerView(rect->width - 2 * kTimeMarkerWidth, this);
  timeMarkerView_->setMarkerRect(*rect);
  timeMarkerView_->show();
}

void SchedulePageView::scrollTo(std::int64_t minute) {
  const QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  const double offset = grid().scrollOffset(minute, area->viewport()->height());
  area->verticalScrollBar()->setValue(static_cast<int>(std::lround(offset)));
}

QColor SchedulePageView::backgroundColor() const {
  return color(kScheduleBackground, this);
}

void SchedulePageView::resizeEvent(QResizeEvent* event) {
  PagedView::resizeEvent(event);
  adjustSize();
}

void SchedulePageView::showEvent(QShowEvent* event) {
  PagedView::showEvent(event);
  watchScrolling();
}

/// The page may lie in a view that is scrolled as a whole: another item then comes under the mouse.
void SchedulePageView::watchScrolling() {
  QScrollArea* area = enclosingScrollArea();
  if (area == scroller_ || isClosing) return;
  if (scroller_) disconnect(scroller_->verticalScrollBar(), nullptr, this, nullptr);
  scroller_ = area;
  if (!area) return;
  connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { updateItemInfo(); });
}

void SchedulePageView::changeEvent(QEvent* event) {
  PagedView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) needsRedraw();
}

void SchedulePageView::mouseMoveEvent(QMouseEvent* event) {
  updateItemInfo(pointOf(event->position()));
}

void SchedulePageView::leaveEvent(QEvent*) {
  updateItemInfo();
}

void SchedulePageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) handleClick(pointOf(event->position()), Click::single);
}

void SchedulePageView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) handleClick(pointOf(event->position()), Click::twice);
}

void SchedulePageView::handleClick(Point point, Click click) {
  if (!owner_) return;
  const auto hit = grid().hit(point);
  const PackedDate date = hit ? dateOfColumn(hit->column) : kNoDate;
  owner_->setSelectedDate(date);
  if (date == kNoDate) return;
  if (click == Click::twice) {
    owner_->gotoScheduleItem(venueOfColumn(hit->column), date, hit->minute);
  } else {
    setNeedsDisplay(true);
  }
}

void SchedulePageView::updateItemInfo() {
  updateItemInfo(pointOf(mapFromGlobal(QPointF(QCursor::pos()))));
  if (!hasKeyboardFocus(*this)) return;
  // A mouse that lies still is not what the user goes by.
  const ScheduleOutline outline = this->outline();
  if (const auto spot = outline.find(focusedID_); spot.session) tellFocused(spot);
}

void SchedulePageView::updateItemInfo(Point point) {
  if (!isCurrentPage() || isAwaitingData) return;
  mouseItem_ = nullptr;
  const bool wanted = isMainWindow() && owner_->itemInfoShown();
  owner_->showItemInfo(wanted ? infoAt(point) : std::string());
}

std::string SchedulePageView::infoAt(Point point) {
  const QRect visible = visibleRegion().boundingRect();
  const auto hit = grid().hit(point);
  if (!hit || !visible.contains(QPointF(point.x, point.y).toPoint())) return {};
  const PackedDate date = dateOfColumn(hit->column);
  if (date == kNoDate || venueOfColumn(hit->column) == 0) return {};
  const ScheduleSpot spot = spotAt(*hit);
  switch (spot.kind) {
    case ScheduleSpot::Kind::nothing:
      return {};
    case ScheduleSpot::Kind::gap:
      return gapInfoText(spot, date, gapName());
    case ScheduleSpot::Kind::item:
      break;
  }
  mouseItem_ = spot.item;
  return itemInfoText(*spot.item, date, dataModel_.sessionName(static_cast<std::int64_t>(spot.item->kind)));
}

}  // namespace tarvel
