#include "viewer/ScheduleStage.h"

#include <QShortcut>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "schedule/DailyScheduleView.h"
#include "schedule/SwipeGestureController.h"
#include "schedule/WeeklyScheduleView.h"

namespace tarvel::viewer {
namespace {

constexpr std::int64_t kDaysPerWeek = 7;

std::vector<std::int64_t> allVenues(const RinkData& rink) {
  std::vector<std::int64_t> venueIDs;
  venueIDs.reserve(rink.venues.size());
  for (const auto& venue : rink.venues) venueIDs.push_back(venue->venueID);
  return venueIDs;
}

}  // namespace

ScheduleStage::ScheduleStage(const WindowContext& context, const std::shared_ptr<RinkData>& rink,
                             const ViewerOptions& options)
    : context_(context),
      rink_(rink),
      options_(options),
      venueIDs_(options.venueIDs.empty() && options.isDaily() ? allVenues(*rink) : options.venueIDs),
      shownDate_(options.shownDate),
      scroller_(new QScrollArea(this)) {
  resize(options.size);
  scroller_->setFrameShape(QFrame::NoFrame);
  scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  if (options.view == ShownView::calendar) {
    showCalendar();
  } else {
    header_ = new ScheduleHeaderView(context_, *this, this);
    column->addWidget(header_);
    showPages();
  }
  column->addWidget(scroller_, 1);
  showTitle();
}

ScheduleStage::~ScheduleStage() {
  if (pagingView_) pagingView_->close();
  if (header_) header_->close();
  if (calendarView_) calendarView_->close();
}

ScheduleViewOption ScheduleStage::form() const {
  return options_.isDaily() ? ScheduleViewOption::daily : ScheduleViewOption::weekly;
}

void ScheduleStage::showPages() {
  pagingView_ = new PagingView(context_);
  scroller_->setWidget(pagingView_);
  // A child of the scroll area.
  new SwipeGestureController(context_, *pagingView_, *scroller_);
  pagingView_->setDelegate(this);
  pagingView_->buildPages();
  pagingView_->setPresented(true);
  header_->setScheduleViewOption(form());
  addTurning();
}

void ScheduleStage::showCalendar() {
  calendarView_ = new CalendarView(context_);
  scroller_->setWidget(calendarView_);
  calendarView_->setPeriodOption(PeriodViewOption::week);
  calendarView_->setRange(rink_->firstWeek, endOfWeek(rink_->lastWeek));
}

void ScheduleStage::addTurning() {
  connect(new QShortcut(Qt::Key_Left, this), &QShortcut::activated, this,
          [this] { pagingView_->glideToPrev(); });
  connect(new QShortcut(Qt::Key_Right, this), &QShortcut::activated, this,
          [this] { pagingView_->glideToNext(); });
}

void ScheduleStage::scrollToMoment() {
  if (calendarView_) calendarView_->setDate(shownDate_, Animate::no);
  if (!pagingView_) return;
  pagingView_->adjustSize();
  if (auto* page = dynamic_cast<SchedulePageView*>(pagingView_->currView())) page->scrollToCurrentTime();
}

QPixmap ScheduleStage::picture() {
  return options_.view == ShownView::header ? grab(header_->geometry()) : grab();
}

// Pages.

PackedDate ScheduleStage::unitDate(Way way) const {
  if (options_.isDaily()) return way == Way::on ? nextDay(shownDate_) : previousDay(shownDate_);
  const PackedDate sunday = startOfWeek(shownDate_);
  return way == Way::on ? addDays(sunday, kDaysPerWeek) : subtractDays(sunday, kDaysPerWeek);
}

PagedView* ScheduleStage::newPagedViewForPagingView(PagingView&) {
  if (options_.isDaily()) return new DailyScheduleView(context_, *this);
  return new WeeklyScheduleView(context_, *this);
}

void ScheduleStage::loadView(PagedView& page, PagingView& pagingView, int offset) {
  reloadView(page, pagingView, offset);
  dynamic_cast<SchedulePageView&>(page).setCurrentDate(rink_->dateNow(), rink_->timeNow());
}

void ScheduleStage::reloadView(PagedView& page, PagingView&, int offset) {
  const PackedDate date = offset == 0 ? shownDate_ : unitDate(offset < 0 ? Way::back : Way::on);
  if (auto* day = dynamic_cast<DailyScheduleView*>(&page)) {
    day->setChosenRink(rink_);
    day->setShowingDate(date);
    day->setChosenVenues(venueIDs_);
  } else if (auto* week = dynamic_cast<WeeklyScheduleView*>(&page)) {
    week->setChosenRink(rink_);
    week->setWeekContaining(date);
    week->setChosenVenueID(venueIDs_.empty() ? 0 : venueIDs_.front());
  }
  dynamic_cast<SchedulePageView&>(page).setDayRange(dayRange_);
  page.setNeedsDisplay(true);
}

void ScheduleStage::pageTurned(Way way) {
  shownDate_ = unitDate(way);
  setSelectedDate(kNoDate);
  updateDayRange();
  showTitle();
}

void ScheduleStage::showTitle() {
  const auto info = rink_->rinkInfo();
  const std::string date =
      options_.isDaily() ? fullDateText(shownDate_) : "Week of " + shortDateText(startOfWeek(shownDate_));
  setWindowTitle(QString::fromStdString((info ? info->name + ", " : std::string()) + date));
  if (header_) header_->setDate(options_.isDaily() ? shownDate_ : startOfWeek(shownDate_));
}

// What the pages ask.

bool ScheduleStage::isCurrentPage(const PagedView& page) const {
  return pagingView_ && &page == pagingView_->currView();
}

ColumnGeometry ScheduleStage::columnGeometry() const {
  const PagedView* page = pagingView_ ? pagingView_->currView() : nullptr;
  if (const auto* week = dynamic_cast<const WeeklyScheduleView*>(page)) {
    return {week->layout().grid().left, week->layout().grid().columnWidth};
  }
  if (const auto* day = dynamic_cast<const DailyScheduleView*>(page)) {
    return {day->layout().grid().left, day->layout().grid().columnWidth};
  }
  return {};
}

void ScheduleStage::redrawScheduleHeader() {
  header_->update();
}

void ScheduleStage::updateDayRange() {
  const auto* current = dynamic_cast<const SchedulePageView*>(pagingView_->currView());
  if (!current || current->isAwaitingData) return;
  const DayRange wanted = current->dayRange();
  dayRange_.startOfDay = std::min(dayRange_.startOfDay, wanted.startOfDay);
  dayRange_.endOfDay = std::max(dayRange_.endOfDay, wanted.endOfDay);
  bool changes = false;
  for (PagedView* view : {pagingView_->prevView(), pagingView_->currView(), pagingView_->nextView()}) {
    if (auto* page = dynamic_cast<SchedulePageView*>(view)) changes |= page->setDayRange(dayRange_);
  }
  if (changes) pagingView_->adjustSize();
}

void ScheduleStage::showItemInfo(const std::string& text) {
  // The empty text takes away the last one.
  QToolTip::showText(QCursor::pos(), QString::fromStdString(text).toHtmlEscaped().replace("\n", "<br>"),
                     this);
}

void ScheduleStage::setSelectedDate(PackedDate date) {
  for (PagedView* view : {pagingView_->prevView(), pagingView_->currView(), pagingView_->nextView()}) {
    if (auto* week = dynamic_cast<WeeklyScheduleView*>(view)) week->setSelectedDate(date);
  }
  selectedDate_ = date;
}

}  // namespace tarvel::viewer
