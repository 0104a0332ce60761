// The part of `ScheduleController` that concerns the pages: what they show, and what they ask.
#include <algorithm>

#include "mainwindow/ScheduleController.h"
#include "platform/FatalError.h"
#include "schedule/DailyScheduleView.h"
#include "schedule/WeeklyScheduleView.h"

namespace tarvel {
namespace {

/// A page that was turned to settles before the mouse's place on it is looked up. Seconds.
constexpr double kItemInfoDelay = 0.5;
/// The label column above a daily page, and the width from which on it is the wide one.
constexpr double kDailyLabel = 35.0;
constexpr double kNarrowDailyLabel = 30.0;
constexpr double kWideDailyFrom = 549.0;

}  // namespace

SchedulePageView* ScheduleController::currentPage() const {
  return dynamic_cast<SchedulePageView*>(pagingView().currView());
}

void ScheduleController::forEachPage(const std::function<void(SchedulePageView&)>& action) const {
  for (PagedView* view : {pagingView().prevView(), pagingView().currView(), pagingView().nextView()}) {
    if (auto* page = dynamic_cast<SchedulePageView*>(view)) action(*page);
  }
}

void ScheduleController::rebuildPages() {
  pagingView().buildPages();
}

void ScheduleController::reloadPages() {
  pagingView().reloadAll();
}

PagedView* ScheduleController::newPagedViewForPagingView(PagingView&) {
  if (isDaily()) return new DailyScheduleView(context_, *this);
  return new WeeklyScheduleView(context_, *this);
}

void ScheduleController::loadView(PagedView& page, PagingView&, int offset) {
  fill(page, offset);
  auto& schedulePage = dynamic_cast<SchedulePageView&>(page);
  schedulePage.setCurrentDate(currentDate_, currentTime_);
  schedulePage.setDayRange(dayRange_);
}

void ScheduleController::reloadView(PagedView& page, PagingView&, int offset) {
  fill(page, offset);
  page.setNeedsDisplay(true);
}

void ScheduleController::fill(PagedView& page, int offset) {
  const PackedDate shown = isDaily() ? displayDate_ : startOfWeek(displayDate_);
  const PackedDate date = offset == 0 ? shown : unitDate(offset < 0 ? Way::back : Way::on);
  if (offset == 0) updateItemInfoSoon();
  if (auto* day = dynamic_cast<DailyScheduleView*>(&page)) {
    day->setChosenRink(rink_.lock());
    day->setShowingDate(date);
    day->setChosenVenues(venues_.dailyChosenVenueIDs);
  } else if (auto* week = dynamic_cast<WeeklyScheduleView*>(&page)) {
    week->setChosenRink(rink_.lock());
    week->setWeekContaining(date);
    week->setChosenVenueID(venues_.weeklyChosenVenueID);
  }
}

void ScheduleController::updateItemInfoSoon() {
  itemInfoTimer_ = context_.services.mainLoop.after(kItemInfoDelay, [this] {
    if (SchedulePageView* page = currentPage(); page && isShown_) page->updateItemInfo();
  });
}

void ScheduleController::updateDayRange() {
  const SchedulePageView* current = currentPage();
  // Until it has loaded, the page still holds the items of the rink or date before.
  if (!isShown_ || !current || current->isAwaitingData) return;
  const DayRange wanted = current->dayRange();
  dayRange_.startOfDay = std::min(dayRange_.startOfDay, wanted.startOfDay);
  dayRange_.endOfDay = std::max(dayRange_.endOfDay, wanted.endOfDay);
  bool changes = false;
  forEachPage([&](SchedulePageView& page) { changes |= page.setDayRange(dayRange_); });
  if (!changes) return;
  pagingView().adjustSize();
  timeTick();  // the night may belong to the day before now
}

// What the pages ask.

VerticalFit ScheduleController::fitVertically() const {
  return fitVertically_ ? VerticalFit::fit : VerticalFit::scroll;
}

SessionTimes ScheduleController::showSessionTimes() const {
  return showSessionTimes_ ? SessionTimes::shown : SessionTimes::hidden;
}

bool ScheduleController::isCurrentPage(const PagedView& page) const {
  return &page == pagingView().currView();
}

ColumnGeometry ScheduleController::columnGeometry() const {
  if (isDaily()) {
    const double width = pagingView().width();
    const double label = width < kWideDailyFrom ? kNarrowDailyLabel : kDailyLabel;
    const auto columns = static_cast<double>(venues_.dailyChosenVenueIDs.size());
    if (columns == 0) return {};
    return {label + kScheduleMargin, (width - 2 * kScheduleMargin - label) / columns};
  }
  const auto* week = dynamic_cast<const WeeklyScheduleView*>(pagingView().currView());
  if (!week) return {};
  return {week->layout().labelColumnWidth(), week->layout().columnWidth()};
}

void ScheduleController::redrawScheduleHeader() {
  // A page asks while the pane is being made.
  if (pane_) pane_->scheduleHeaderView().update();
}

bool ScheduleController::itemInfoShown() const {
  return isShown_ && sidebar().showsItemInfo();
}

void ScheduleController::showItemInfo(const std::string& text) {
  sidebar().setItemInfo(text);
}

void ScheduleController::setSelectedDate(PackedDate date) {
  forEachPage([date](SchedulePageView& page) {
    if (auto* week = dynamic_cast<WeeklyScheduleView*>(&page)) week->setSelectedDate(date);
  });
  selectedDate_ = date;
}

}  // namespace tarvel
