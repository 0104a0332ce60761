// The part of `ScheduleController` that concerns dates: the way through them, the clock, and midnight.
#include "foundation/TextFormats.h"
#include "mainwindow/ScheduleController.h"
#include "schedule/WeeklyScheduleView.h"
#include "ui/AnalogClockFace.h"

namespace tarvel {
namespace {

constexpr std::int64_t kDaysPerWeek = 7;

}  // namespace

PackedDate ScheduleController::unitDate(Way way) const {
  if (isDaily()) return way == Way::on ? nextDay(displayDate_) : previousDay(displayDate_);
  const PackedDate sunday = startOfWeek(displayDate_);
  return way == Way::on ? addDays(sunday, kDaysPerWeek) : subtractDays(sunday, kDaysPerWeek);
}

bool ScheduleController::pagesBeforeCurrent(PagingView&) {
  return !rink_.expired() && weekRange().reachableBackwards(unitDate(Way::back));
}

bool ScheduleController::pagesAfterCurrent(PagingView&) {
  return !rink_.expired() && weekRange().reachableForwards(unitDate(Way::on));
}

void ScheduleController::prev() {
  pagingView().glideToPrev();
}

void ScheduleController::next() {
  pagingView().glideToNext();
}

void ScheduleController::pageTurned(Way way) {
  displayDate_ = unitDate(way);
  goToDate(displayDate_, Scroll::yes);
  updateHeader();
  host_.updateControls();
  updateDayRange();
  updateItemInfoSoon();
  clearSelection();
}

void ScheduleController::clearSelection() {
  setSelectedDate(kNoDate);
}

void ScheduleController::goToDate(PackedDate date, Scroll scroll) {
  calendarView().setSuppressScrolling(scroll == Scroll::no);
  calendarView().setDate(date, calendarView().isVisible() ? Animate::yes : Animate::no);
  calendarView().setSuppressScrolling(false);
}

void ScheduleController::resetCalendar() {
  const PackedDate today = todayDate(context_.services.pretendTime);
  if (rink_.expired()) {
    calendarView().setRange(startOfWeek(today), endOfWeek(today));
    goToDate(today, Scroll::no);
  }
  pagingView().adjustSize();
  updateFontSize();
}

void ScheduleController::changeCalendarDate() {
  const PackedDate date = calendarView().currentDate();
  if (date == displayDate_) return;
  pagingView().finishGlide();
  // A turn that was under way has taken the calendar along; the user's choice is the later word.
  goToDate(date, Scroll::no);
  if (date == displayDate_) return;
  if (date == unitDate(Way::back) && pagesBeforeCurrent(pagingView())) {
    pagingView().glideToPrev();
  } else if (date == unitDate(Way::on) && pagesAfterCurrent(pagingView())) {
    pagingView().glideToNext();
  } else {
    displayDate_ = date;
    reloadPages();
  }
  clearSelection();
  updateHeader();
  host_.updateControls();
}

void ScheduleController::gotoNow() {
  if (currentDate_ == kNoDate) return;  // no rink has told what day it is
  pagingView().finishGlide();
  displayDate_ = clamped(currentDate_);
  const PackedDate before = calendarView().currentDate();
  goToDate(displayDate_, Scroll::yes);
  if (calendarView().currentDate() != before) reloadPages();
  // The page that is to be scrolled has to know its span first.
  if (SchedulePageView* page = currentPage()) {
    page->pageDidBecomeCurrent();
    page->scrollToCurrentTime();
  }
  updateHeader();
  host_.updateControls();
}

void ScheduleController::gotoScheduleItem(std::int64_t venueID, PackedDate date, std::int64_t minutes) {
  pagingView().finishGlide();
  if (venues_.addDailyVenue(venueID)) {
    storeChosenVenues();
    updateVenues();
    handDailyVenues();
  }
  if (setScheduleViewOption(ScheduleViewOption::daily)) context_.application.markChanged();
  displayDate_ = date;
  goToDate(date, Scroll::yes);
  reloadPages();
  if (SchedulePageView* page = currentPage()) {
    page->pageDidBecomeCurrent();
    page->scrollTo(minutes);
  }
  updateHeader();
  host_.updateControls();
}

ScheduleControls ScheduleController::controls() const {
  const auto rink = rink_.lock();
  if (!rink) return {};
  const CalendarView& calendar = calendarView();
  const auto isShown = [&](PackedDate date) {
    return date >= calendar.firstSelectedDate() && date <= calendar.lastSelectedDate();
  };
  return {!isShown(rink->firstWeek),
          rink->dateNow() >= calendar.minimumDate() && rink->dateNow() <= calendar.maximumDate(),
          !isShown(endOfWeek(rink->lastWeek))};
}

void ScheduleController::updateHeader() {
  const auto rink = rink_.lock();
  const PackedDate sunday = startOfWeek(displayDate_);
  pane_->scheduleHeaderView().setVisible(rink != nullptr);
  if (rink) pane_->scheduleHeaderView().setDate(isDaily() ? displayDate_ : sunday);
  if (!isDaily()) {
    pane_->setDescription(displayDate_ == kNoDate ? "" : "Week of " + shortDateText(sunday));
    return;
  }
  const PackedDate today = rink ? rink->dateNow() : todayDate(context_.services.pretendTime);
  std::string text = longDateText(displayDate_);
  if (displayDate_ == today) {
    text += "   (Today)";
  } else if (displayDate_ == previousDay(today)) {
    text += "   (Yesterday)";
  } else if (displayDate_ == nextDay(today)) {
    text += "   (Tomorrow)";
  }
  pane_->setDescription(text);
}

// The clock.

void ScheduleController::timeTick() {
  const auto rink = rink_.lock();
  if (!rink) return;
  if (isShown_) showClock();
  const auto [date, time] =
      scheduleMoment(rink->dateNow(), rink->timeNow(), dayRange_.startOfDay, dayRange_.endOfDay);
  if (isShown_) forEachPage([&](SchedulePageView& page) { page.setCurrentDate(date, time); });
  if (time != currentTime_) {
    if (wantsChime() && chime_.advance(currentTime_, time)) chime(time);
    currentTime_ = time;
  }
  if (isShown_ && date != currentDate_) followMidnight(date);
}

// A window that shows the present day or week goes on to the next with the clock; one that shows another
// stays.
void ScheduleController::followMidnight(PackedDate date) {
  const PackedDate lastShown = isDaily() ? displayDate_ : endOfWeek(displayDate_);
  currentDate_ = date;
  if (lastShown != kNoDate && date == nextDay(lastShown)) {
    pagingView().finishGlide();
    pagingView().gotoNext();
    if (SchedulePageView* page = currentPage()) page->scrollToCurrentTime();
  }
  host_.requestDataPass();
}

void ScheduleController::showClock() {
  const auto rink = rink_.lock();
  if (!rink) return;
  const auto& zone = rink->timeZone();
  sidebar().setClock({timeText(rink->timeNow()),
                      zone ? zone->abbreviation(context_.services.pretendTime.now()) : std::string(),
                      std::string(weekdayName(weekdayOf(rink->dateNow()))), shortDateText(rink->dateNow())});
}

void ScheduleController::currentDateChanged() {
  timeTick();
  updateHeader();
  host_.updateControls();
  redrawScheduleHeader();
}

void ScheduleController::timeZoneChanged() {
  if (const auto rink = rink_.lock(); rink && rink->timeZone()) {
    sidebar().analogClockFace().setTimeZone(*rink->timeZone());
  }
  timeTick();
  updateHeader();
  host_.updateControls();
}

}  // namespace tarvel
