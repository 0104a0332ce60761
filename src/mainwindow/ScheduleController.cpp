#include "mainwindow/ScheduleController.h"

#include <algorithm>

#include "schedule/DailyScheduleView.h"
#include "schedule/SchedulePrintDialog.h"
#include "schedule/WeeklyScheduleView.h"
#include "ui/AnalogClockFace.h"

namespace tarvel {

ScheduleController::ScheduleController(const WindowContext& context, ScheduleHost& host, QWidget* parent)
    : context_(context), host_(host), fontSize_(kDefaultItemFontSize) {
  pane_ = new SchedulePane(context, *this, parent);
  pagingView().setDelegate(this);
  sidebar().setOption(scheduleViewOption_);
  sidebar().setFit(fitVertically_);
  sidebar().setShowTimes(showSessionTimes_);
  calendarView().setPeriodOption(PeriodViewOption::week);
  connectSidebar();
  updateVenues();
  updateChimePopUp();
  pagingView().buildPages();
}

ScheduleController::~ScheduleController() {
  // The pane goes with the window, after this, and must not turn to it any more.
  close();
}

void ScheduleController::connectSidebar() {
  ScheduleSidebar* from = &sidebar();
  sidebar().setLogoProvider([this, from]() -> std::shared_ptr<const Image> {
    const auto rink = rink_.lock();
    const auto info = rink ? rink->rinkInfo() : nullptr;
    if (!info) return nullptr;
    return appearanceOf(from) == Appearance::dark ? info->darkLogoImage() : info->logoImage();
  });
  QObject::connect(from, &ScheduleSidebar::viewOptionChosen, pane_, [this](ScheduleViewOption option) {
    if (setScheduleViewOption(option)) context_.application.markChanged();
  });
  QObject::connect(from, &ScheduleSidebar::venueToggled, pane_,
                   [this](std::int64_t venueID, bool on) { toggleVenue(venueID, on); });
  QObject::connect(from, &ScheduleSidebar::chimeChosen, pane_,
                   [this](std::int64_t venueID) { chooseChimeOption(venueID); });
  QObject::connect(from, &ScheduleSidebar::fitToggled, pane_, [this](bool on) { toggleFitHeight(on); });
  QObject::connect(from, &ScheduleSidebar::showTimesToggled, pane_, [this](bool on) { toggleShowTimes(on); });
  QObject::connect(from, &ScheduleSidebar::increaseTextSize, pane_, [this] { increaseTextSize(); });
  QObject::connect(from, &ScheduleSidebar::decreaseTextSize, pane_, [this] { decreaseTextSize(); });
}

void ScheduleController::close() {
  if (isClosed_) return;
  isClosed_ = true;
  itemInfoTimer_.reset();
  context_.clockTimer.removeClockFace(sidebar().analogClockFace());
  pane_->close();
}

// The rink.

WeekRange ScheduleController::weekRange() const {
  const auto rink = rink_.lock();
  return rink ? WeekRange{rink->firstWeek, rink->lastWeek} : WeekRange{};
}

PackedDate ScheduleController::clamped(PackedDate date) const {
  return rink_.expired() ? date : weekRange().clamped(date);
}

void ScheduleController::storeChosenVenues() const {
  if (const auto rink = rink_.lock()) venues_.storeInto(*rink);
}

void ScheduleController::chooseRink(const std::shared_ptr<RinkData>& rink) {
  pagingView().finishGlide();
  rink_ = rink;
  if (rink) {
    if (displayDate_ == kNoDate) displayDate_ = rink->dateNow();
    displayDate_ = clamped(displayDate_);
    timeZoneChanged();
    redrawScheduleHeader();
    calendarView().setRange(rink->firstWeek, endOfWeek(rink->lastWeek));
    venues_ = ChosenVenues::of(*rink);
    if (isShown_) {
      goToDate(displayDate_, Scroll::yes);
      reloadPages();
      clearSelection();
    }
  }
  dayRange_ = {kDefaultStartOfDay, kDefaultEndOfDay};
}

void ScheduleController::updateRinkContent() {
  logoChanged();
  updateVenues();
  updateChimePopUp();
  reloadPages();
  updateDayRange();
}

void ScheduleController::logoChanged() {
  sidebar().redrawLogo();
}

void ScheduleController::venuesChanged() {
  updateVenues();
  updateChimePopUp();
  rebuildPages();
  reloadPages();
  redrawScheduleHeader();
}

void ScheduleController::dateRangeChanged() {
  pagingView().finishGlide();
  displayDate_ = clamped(displayDate_);
  const WeekRange range = weekRange();
  calendarView().setRange(range.firstWeek, endOfWeek(range.lastWeek));
  goToDate(displayDate_, Scroll::yes);
  if (!isShown_) return;
  reloadPages();
  host_.updateControls();
}

// The pane.

void ScheduleController::prepareForShow() {
  isShown_ = true;
  logoChanged();
  goToDate(displayDate_, Scroll::no);
  reloadPages();
  setSelectedDate(kNoDate);
  updateHeader();
}

void ScheduleController::paneShown() {
  isShown_ = true;
  pagingView().setPresented(true);
  context_.clockTimer.addClockFace(sidebar().analogClockFace());
  calendarView().needsRedraw();
}

void ScheduleController::paneHidden() {
  isShown_ = false;
  pagingView().setPresented(false);
  context_.clockTimer.removeClockFace(sidebar().analogClockFace());
}

// The forms of the schedule.

bool ScheduleController::setScheduleViewOption(ScheduleViewOption option) {
  if (option == scheduleViewOption_) return false;
  pagingView().finishGlide();
  const auto* day = dynamic_cast<DailyScheduleView*>(currentPage());
  const PackedDate shownDay = day ? day->showingDate() : kNoDate;
  scheduleViewOption_ = option;
  pane_->scheduleHeaderView().setScheduleViewOption(option);
  sidebar().setOption(option);
  sidebar().showTimesVisible(!isDaily());
  updateVenues();
  rebuildPages();
  calendarView().setPeriodOption(isDaily() ? PeriodViewOption::day : PeriodViewOption::week);
  if (isShown_) {
    reloadPages();
    if (isDaily()) goToFirstDay();
    if (auto* week = dynamic_cast<WeeklyScheduleView*>(currentPage()); week && shownDay != kNoDate) {
      week->setSelectedDate(shownDay);
    }
  }
  updateHeader();
  updateFontSize();
  host_.updateControls();
  return true;
}

// The date that is shown stays as it is: the calendar alone goes to the day that a user looks for first.
void ScheduleController::goToFirstDay() {
  const auto rink = rink_.lock();
  const PackedDate now = rink ? rink->dateNow() : todayDate(context_.services.pretendTime);
  const PackedDate sunday = startOfWeek(displayDate_);
  goToDate(startOfWeek(now) == sunday ? now : sunday, Scroll::yes);
}

ScheduleForm ScheduleController::form() const {
  return {scheduleViewOption_, venues_.dailyChosenVenueIDs.size(), fitVertically_};
}

void ScheduleController::updateFontSize() {
  const double size = fontSizes_.sizeFor(form());
  sidebar().setTextSizeSteps(size > ScheduleFontSizes::kSmallest, size < ScheduleFontSizes::kLargest);
  if (size == fontSize_) return;
  fontSize_ = size;
  forEachPage([](SchedulePageView& page) { page.pageDidChangeSettings(); });
  if (isShown_) reloadPages();
}

void ScheduleController::setFontSize(double size) {
  fontSizes_.setSizeFor(form(), size);
  updateFontSize();
  context_.application.markChanged();
}

void ScheduleController::increaseTextSize() {
  if (fontSize_ < ScheduleFontSizes::kLargest) setFontSize(fontSize_ + ScheduleFontSizes::kStep);
}

void ScheduleController::decreaseTextSize() {
  if (fontSize_ > ScheduleFontSizes::kSmallest) setFontSize(fontSize_ - ScheduleFontSizes::kStep);
}

void ScheduleController::toggleFitHeight(bool on) {
  const bool changes = on != fitVertically_;
  fitVertically_ = on;
  if (changes) {
    forEachPage([](SchedulePageView& page) { page.pageDidChangeSettings(); });
    pagingView().adjustSize();
    if (!on && currentPage()) currentPage()->scrollToCurrentTime();
  }
  updateFontSize();
  context_.application.markChanged();
}

// A choice for the moment: it is kept with the rest, but alone it is no reason to save.
void ScheduleController::toggleShowTimes(bool on) {
  if (on == showSessionTimes_) return;
  showSessionTimes_ = on;
  sidebar().setShowTimes(on);
  if (isShown_) pagingView().redrawAll();
}

void ScheduleController::restoreSettings(const MainWindowSettings& settings) {
  setScheduleViewOption(settings.scheduleViewOption);
  fontSizes_ = settings.fontSizes;
  const bool changes = settings.fitVertically != fitVertically_;
  fitVertically_ = settings.fitVertically;
  showSessionTimes_ = settings.showSessionTimes;
  sidebar().setFit(fitVertically_);
  sidebar().setShowTimes(showSessionTimes_);
  if (changes) {
    forEachPage([](SchedulePageView& page) { page.pageDidChangeSettings(); });
    pagingView().adjustSize();
  }
  updateFontSize();
}

void ScheduleController::addToSettings(MainWindowSettings& settings) const {
  settings.scheduleViewOption = scheduleViewOption_;
  settings.fitVertically = fitVertically_;
  settings.showSessionTimes = showSessionTimes_;
  settings.fontSizes = fontSizes_;
}

void ScheduleController::print() {
  if (!canPrint()) return;
  openPrintDialog(*pane_, context_.dataModel,
                  {scheduleViewOption_, rink_.lock(), displayDate_, venues_.weeklyChosenVenueID,
                   venues_.dailyChosenVenueIDs, dayRange_, showSessionTimes()});
}

}  // namespace tarvel
