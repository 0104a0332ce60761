#include "mainwindow/SchedulePane.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "mainwindow/ContentBox.h"
#include "mainwindow/TextLabel.h"
#include "mainwindow/VenueButtonRow.h"

namespace tarvel {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kFooterHeight = 24;
constexpr std::int64_t kDaysPerPage = 7;
/// A page that was turned to settles before the mouse's place on it is looked up.
constexpr double kItemInfoDelay = 0.5;
const TextAttributes kItemInfoAttributes{11.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};

}  // namespace

SchedulePane::SchedulePane(const WindowContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  venueButtons_ = new VenueButtonRow(this);
  venueButtons_->venueChosen = [this](std::int64_t venueID) {
    setWeeklyVenue(venueID);
    storeChosenVenues();
    context_.application.markChanged();
  };
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, 0, kMargin, kMargin);
  column->setSpacing(kSpacing);
  column->addWidget(venueButtons_);
  column->addWidget(makeScheduleArea(), 1);
  column->addWidget(makeFooter());
}

SchedulePane::~SchedulePane() {
  // The page is destroyed last, when its owner is gone.
  close();
}

QWidget* SchedulePane::makeScheduleArea() {
  auto* box = new ContentBox(kScheduleBackground, this);
  header_ = new ScheduleHeaderView(context_, *this, box);
  scroller_ = new QScrollArea(box);
  scroller_->setFrameShape(QFrame::NoFrame);
  scroller_->setFocusPolicy(Qt::TabFocus);
  scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  page_ = new WeeklyScheduleView(context_, *this);
  scroller_->setWidget(page_);
  scroller_->viewport()->installEventFilter(this);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(scroller_, 1);
  return box;
}

QWidget* SchedulePane::makeFooter() {
  auto* footer = new QWidget(this);
  footer->setFixedHeight(kFooterHeight);
  itemInfoField_ = new TextLabel(kItemInfoAttributes, TextLabel::Lines::one, footer);
  fitVerticallyCheckbox_ = new QCheckBox(QStringLiteral("Fit"), footer);
  fitVerticallyCheckbox_->setToolTip(QStringLiteral("Show the whole day at once"));
  fitVerticallyCheckbox_->setFocusPolicy(Qt::TabFocus);
  fitVerticallyCheckbox_->setChecked(settings_.fitVertically);
  connect(fitVerticallyCheckbox_, &QCheckBox::clicked, this, &SchedulePane::toggleFitHeight);
  auto* row = new QHBoxLayout(footer);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kMargin);
  row->addWidget(itemInfoField_, 1);
  row->addWidget(fitVerticallyCheckbox_);
  return footer;
}

void SchedulePane::close() {
  controlsChanged = nullptr;
  itemInfoTimer_.reset();
  header_->close();
  page_->close();
}

WeekRange SchedulePane::weekRange() const {
  const auto rink = rink_.lock();
  return rink ? WeekRange{rink->firstWeek, rink->lastWeek} : WeekRange{};
}

PackedDate SchedulePane::clamped(PackedDate date) const {
  return rink_.expired() ? date : weekRange().clamped(date);
}

ScheduleControls SchedulePane::controls() const {
  ScheduleControls controls;
  const PackedDate weekOf = startOfWeek(displayDate_);
  controls.description = "Week of " + shortDateText(weekOf);
  if (const auto rink = rink_.lock()) {
    const WeekRange range = weekRange();
    const auto isShown = [&](PackedDate date) { return date >= weekOf && date <= endOfWeek(weekOf); };
    controls.canGoBack = !isShown(range.firstWeek);
    controls.canGoForward = !isShown(endOfWeek(range.lastWeek));
    controls.canGoToNow = range.holds(rink->dateNow());
  }
  return controls;
}

void SchedulePane::tellControls() const {
  if (controlsChanged) controlsChanged();
}

void SchedulePane::setRink(const std::shared_ptr<RinkData>& rink) {
  rink_ = rink;
  if (rink) {
    if (displayDate_ == kNoDate) displayDate_ = rink->dateNow();
    displayDate_ = clamped(displayDate_);
    chimeVenueID_ = rink->chimeVenueID;
    weeklyChosenVenueID_ = rink->weeklyVenueID;
    dailyChosenVenueIDs_ = rink->dailyVenueIDs;
    timeTick();
    reloadPages();
    page_->setSelectedDate(kNoDate);
  }
}

void SchedulePane::fillForRink() {
  dayRange_ = {kDefaultStartOfDay, kDefaultEndOfDay};
  if (page_->setDayRange(dayRange_)) layOutPages();
  updateRinkContent();
  if (scrolledToTime_ || rink_.expired()) return;
  // The window has just opened: a schedule that scrolls begins at the present.
  scrolledToTime_ = true;
  page_->pageDidBecomeCurrent();
  page_->scrollToCurrentTime();
}

void SchedulePane::storeChosenVenues() const {
  const auto rink = rink_.lock();
  if (!rink) return;
  rink->chimeVenueID = chimeVenueID_;
  rink->weeklyVenueID = weeklyChosenVenueID_;
  rink->dailyVenueIDs = dailyChosenVenueIDs_;
}

void SchedulePane::updateRinkContent() {
  updateVenues();
  reloadPages();
  updateDayRange();
}

void SchedulePane::updateVenues() {
  const auto rink = rink_.lock();
  std::vector<std::shared_ptr<Venue>> venues;
  if (rink) venues = rink->venues;
  std::stable_sort(venues.begin(), venues.end(),
                   [](const auto& a, const auto& b) { return displaysBefore(*a, *b); });
  const bool exists = std::any_of(venues.begin(), venues.end(), [this](const auto& venue) {
    return venue->venueID == weeklyChosenVenueID_;
  });
  if (!exists && !venues.empty()) weeklyChosenVenueID_ = venues.front()->venueID;
  venueButtons_->setVenues(venues, weeklyChosenVenueID_);
}

void SchedulePane::setWeeklyVenue(std::int64_t venueID) {
  weeklyChosenVenueID_ = venueID;
  page_->setChosenVenueID(venueID);
  tellControls();
}

void SchedulePane::venuesChanged() {
  updateVenues();
  reloadPages();
  redrawScheduleHeader();
}

void SchedulePane::dateRangeChanged() {
  displayDate_ = clamped(displayDate_);
  reloadPages();
  tellControls();
}

void SchedulePane::reloadPages() {
  page_->setChosenRink(rink_.lock());
  page_->setWeekContaining(displayDate_);
  page_->setChosenVenueID(weeklyChosenVenueID_);
  page_->setNeedsDisplay(true);
  header_->setDate(startOfWeek(displayDate_));
  itemInfoTimer_ = context_.services.mainLoop.after(kItemInfoDelay, [this] { page_->updateItemInfo(); });
}

void SchedulePane::goToPreviousPage() {
  const PackedDate date = subtractDays(startOfWeek(displayDate_), kDaysPerPage);
  if (!rink_.expired() && weekRange().reachableBackwards(date)) pageTurned(date);
}

void SchedulePane::goToNextPage() {
  const PackedDate date = addDays(startOfWeek(displayDate_), kDaysPerPage);
  if (!rink_.expired() && weekRange().reachableForwards(date)) pageTurned(date);
}

void SchedulePane::pageTurned(PackedDate date) {
  displayDate_ = date;
  reloadPages();
  page_->pageDidBecomeCurrent();
  updateDayRange();
  setSelectedDate(kNoDate);
  tellControls();
}

void SchedulePane::gotoNow() {
  const PackedDate date = clamped(currentDate_);
  const bool changes = date != displayDate_;
  displayDate_ = date;
  if (changes) {
    reloadPages();
    page_->pageDidBecomeCurrent();
  }
  page_->scrollToCurrentTime();
  tellControls();
}

void SchedulePane::gotoScheduleItem(std::int64_t, PackedDate date, std::int64_t minute) {
  displayDate_ = date;
  page_->scrollTo(minute);
  tellControls();
}

void SchedulePane::timeTick() {
  const auto rink = rink_.lock();
  if (!rink) return;
  const ScheduleMoment now =
      scheduleMoment(rink->dateNow(), rink->timeNow(), dayRange_.startOfDay, dayRange_.endOfDay);
  page_->setCurrentDate(now.date, now.time);
  currentTime_ = now.time;
  if (now.date == currentDate_) return;
  // A window that shows this week goes on to the next with the clock; one that shows another stays.
  if (now.date == nextDay(endOfWeek(displayDate_))) {
    goToNextPage();
    page_->scrollToCurrentTime();
  }
  currentDate_ = now.date;
}

void SchedulePane::currentDateChanged() {
  timeTick();
  redrawScheduleHeader();
  tellControls();
}

void SchedulePane::updateDayRange() {
  // Until it has loaded, the page still holds the items of the rink or week before.
  if (page_->isAwaitingData) return;
  const DayRange wanted = page_->dayRange();
  dayRange_.startOfDay = std::min(dayRange_.startOfDay, wanted.startOfDay);
  dayRange_.endOfDay = std::max(dayRange_.endOfDay, wanted.endOfDay);
  if (page_->setDayRange(dayRange_)) layOutPages();
}

void SchedulePane::layOutPages() {
  const QSize room = scroller_->viewport()->size();
  const int height = static_cast<int>(page_->heightForAvailableHeight(room.height()));
  const QSize size(room.width(), height);
  if (size != page_->size()) {
    page_->resize(size);
  } else {
    page_->adjustSize();
  }
}

bool SchedulePane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == scroller_->viewport() && event->type() == QEvent::Resize) layOutPages();
  return QWidget::eventFilter(watched, event);
}

void SchedulePane::toggleFitHeight(bool fit) {
  const bool changes = fit != settings_.fitVertically;
  settings_.fitVertically = fit;
  fontSize_ = settings_.weeklyFontSize();
  if (changes) {
    page_->pageDidChangeSettings();
    layOutPages();
    page_->scrollToCurrentTime();
  }
  context_.application.markChanged();
}

void SchedulePane::restoreSettings(const MainWindowSettings& settings) {
  settings_ = settings;
  fontSize_ = settings_.weeklyFontSize();
  fitVerticallyCheckbox_->setChecked(settings_.fitVertically);
  page_->pageDidChangeSettings();
  layOutPages();
}

void SchedulePane::addToSettings(MainWindowSettings& settings) const {
  settings.fitVertically = settings_.fitVertically;
}

VerticalFit SchedulePane::fitVertically() const {
  return settings_.fitVertically ? VerticalFit::fit : VerticalFit::scroll;
}

SessionTimes SchedulePane::showSessionTimes() const {
  return settings_.showSessionTimes ? SessionTimes::shown : SessionTimes::hidden;
}

ColumnGeometry SchedulePane::columnGeometry() const {
  return {page_->layout().labelColumnWidth(), page_->layout().columnWidth()};
}

bool SchedulePane::itemInfoShown() const {
  return itemInfoField_ && itemInfoField_->isVisible();
}

void SchedulePane::showItemInfo(const std::string& text) {
  if (!itemInfoField_) return;
  // The field is one line high.
  QStringList lines = QString::fromStdString(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  itemInfoField_->setTextUtf8(lines.join(QStringLiteral("   ")).toStdString());
}

void SchedulePane::setSelectedDate(PackedDate date) {
  page_->setSelectedDate(date);
  selectedDate_ = date;
}

}  // namespace tarvel
