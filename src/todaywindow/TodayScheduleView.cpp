#include "todaywindow/TodayScheduleView.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVariantAnimation>
#include <algorithm>
#include <cmath>

#include "todaywindow/TodayPainter.h"

namespace tarvel {
namespace {

/// Also tells one that no longer exists from none.
template <typename T>
bool isSame(const std::weak_ptr<T>& held, const std::shared_ptr<T>& other) {
  return !held.owner_before(other) && !other.owner_before(held);
}

}  // namespace

TodayScheduleView::TodayScheduleView(const WindowContext& context, QWidget* parent)
    : DataLoadingView(context.services.notifications, parent),
      services_(context.services),
      dataModel_(context.dataModel),
      application_(context.application),
      scrollAnimation_(new QVariantAnimation(this)) {
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(QStringLiteral("Today's schedule"));
  scrollAnimation_->setDuration(kScrollToNowMilliseconds);
  scrollAnimation_->setEasingCurve(QEasingCurve::InOutQuad);
  connect(scrollAnimation_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    if (scroller_) scroller_->verticalScrollBar()->setValue(value.toInt());
  });
  observe(context);
}

void TodayScheduleView::observe(const WindowContext& context) {
  const auto on = [&](NotificationName name, NotificationCenter::Handler handler) {
    observations_.push_back(services_.notifications.observe(name, std::move(handler)));
  };
  on(kScheduleNamesChanged, [this](const Notification&) { needsRedraw(); });
  on(kScheduleColorsChanged, [this](const Notification&) { needsRedraw(); });
  on(kSchedulesChanged, [this](const Notification& notification) {
    const auto rink = chosenRink();
    if (rink && notification.object.is(rink.get())) needsData();
  });
  on(kWeeklyScheduleChanged,
     [this](const Notification& notification) { weeklyScheduleChanged(notification); });
  on(kCheckObservers,
     [&census = context.observerCensus](const Notification&) { census.checkObservers("TodayScheduleView"); });
  wakeSubscription_ = context.workspace.onWake([this] { needsData(); });
}

void TodayScheduleView::weeklyScheduleChanged(const Notification& notification) {
  const auto rink = chosenRink();
  if (!rink || !notification.object.is(rink.get())) return;
  const auto weekOf = notification.integer(kWeekOfKey);
  if (!weeklySchedule_ || weekOf == static_cast<std::int64_t>(weeklySchedule_->weekOf)) needsData();
}

void TodayScheduleView::setChosen(const std::shared_ptr<RinkData>& rink,
                                  const std::shared_ptr<Venue>& venue) {
  // One that has gone meanwhile differs from none: what it showed is to be cleared.
  if (isSame(chosenRink_, rink) && isSame(chosenVenue_, venue)) return;
  chosenRink_ = rink;
  chosenVenue_ = venue;
  needsData();
}

void TodayScheduleView::setCurrent(PackedDate date, std::int64_t time) {
  if (date != currentDate_) {
    currentDate_ = date;
    currentTime_ = time;
    needsData();
    return;
  }
  if (time == currentTime_) return;
  currentTime_ = time;
  updateCurrentSession();
  placeTimeMarker();
  if (fitHeight_ == VerticalFit::fit) return;
  // A clock that was set back must not hold the view until it has caught up.
  const bool hasRested =
      !lastScrolled_ || std::abs(services_.pretendTime.now() - *lastScrolled_) >= kScrollRest;
  if (hasRested) scrollToCurrentTime(Animate::yes);
}

// The data.

void TodayScheduleView::loadData() {
  if (isClosing) return;
  isAwaitingData = false;
  readSchedule();
  measureColumns();
  adjustSize();
  updateCurrentSession();
  describe();
  setNeedsDisplay(true);
  if (scrollToNow_ && fitHeight_ == VerticalFit::scroll) scrollToCurrentTime(Animate::no);
  scrollToNow_ = false;
}

void TodayScheduleView::readSchedule() {
  // A venue refers to its rink, which must be there while it is asked.
  const auto rink = chosenRink();
  const auto venue = rink ? chosenVenue_.lock() : nullptr;
  weeklySchedule_ =
      venue && currentDate_ != kNoDate ? venue->weeklySchedule(startOfWeek(currentDate_)) : nullptr;
  scheduleItems_.clear();
  if (const auto items = weeklySchedule_ ? weeklySchedule_->items() : nullptr) {
    const std::int64_t day = weekdayOf(currentDate_);
    std::copy_if(items->begin(), items->end(), std::back_inserter(scheduleItems_),
                 [day](const auto& item) { return item->day == day; });
  }
  dayRange_ = todayRange(scheduleItems_, TodayLayout::kLeastRange);
}

void TodayScheduleView::updateCurrentSession() {
  for (const auto& item : scheduleItems_) {
    if (item->time <= currentTime_ && currentTime_ < item->time + item->duration) currentSession_ = item;
  }
  // The frame goes with the end of a session, too, which nothing may follow.
  const ScheduleItem* framed = todayItemAt(scheduleItems_, currentTime_);
  if (framed == framedItem_) return;
  framedItem_ = framed;
  describe();
  needsRedraw();
}

void TodayScheduleView::describe() {
  QString text = QStringLiteral("%1, %2 sessions")
                     .arg(QString::fromStdString(fullDateText(currentDate_)))
                     .arg(scheduleItems_.size());
  if (const ScheduleItem* now = todayItemAt(scheduleItems_, currentTime_))
    text += QStringLiteral(", now: ") + QString::fromStdString(now->displayName(", "));
  setAccessibleDescription(text);
  accessibleContentChanged();
}

// The layout.

void TodayScheduleView::measureColumns() {
  widest_ = measureToday(scheduleItems_, styles_);
}

void TodayScheduleView::adjustSize() {
  if (isClosing || isAwaitingData) return;
  const QScrollArea* area = enclosingScrollArea();
  const QSize room = area ? area->viewport()->size() : size();
  const Size frame{static_cast<double>(room.width()), static_cast<double>(room.height())};
  layout_ = TodayLayout({frame, fitHeight_, heightScaleFactor_, Medium::screen, dayRange_, widest_});
  resize(room.width(), static_cast<int>(std::lround(layout_.viewHeight())));
  placeTimeMarker();
  needsRedraw();
}

void TodayScheduleView::placeTimeMarker() {
  // Without a rink there is no time of day, and the last one would stand there for good.
  const auto rect = chosenRink() ? layout_.timeMarkerRect(currentTime_) : std::nullopt;
  if (!rect || isClosing) {
    if (timeMarkerView_) timeMarkerView_->hide();
    return;
  }
  if (!timeMarkerView_) {
    timeMarkerView_ = new TimeMarkerView(
        rect->width, this, {TodayLayout::kMarkerLine, TodayLayout::kMarkerWidth, TodayLayout::kMarkerHeight});
  }
  timeMarkerView_->setMarkerRect(*rect);
  timeMarkerView_->show();
}

void TodayScheduleView::setFitHeight(VerticalFit fit) {
  if (fit == fitHeight_) return;
  fitHeight_ = fit;
  styles_.switchTo(baseSize());
  measureColumns();
  adjustSize();
  needsRedraw();
  if (fit == VerticalFit::fit) return;
  scrollToCurrentTime(Animate::no);
  lastScrolled_.reset();
}

void TodayScheduleView::setHeightScaleFactor(double value) {
  const double limited = std::isfinite(value) ? std::clamp(value, kSmallestScale, kLargestScale) : 1.0;
  if (limited == heightScaleFactor_) return;
  heightScaleFactor_ = limited;
  adjustSize();
  if (fitHeight_ == VerticalFit::scroll) scrollToCurrentTime(Animate::no);
  needsRedraw();
  application_.markChanged();
}

double TodayScheduleView::baseSize() const {
  return std::max(TodayStyles::kSmallestSize, fontSize(fitHeight_));
}

void TodayScheduleView::setFontSize(VerticalFit mode, double size) {
  double limited = 0.0;
  if (std::isfinite(size) && size > 0.0)
    limited = std::clamp(size, TodayStyles::kSmallestSize, TodayStyles::kLargestSize);
  (mode == VerticalFit::fit ? fontSizeFit_ : fontSizeScroll_) = limited;
  if (mode == fitHeight_ && limited > 0.0) applyFontSize();
}

void TodayScheduleView::applyFontSize() {
  styles_.apply(baseSize());
  measureColumns();
  adjustSize();
  needsRedraw();
}

void TodayScheduleView::increaseFontSize() {
  if (baseSize() < TodayStyles::kLargestSize) setFontSize(fitHeight_, baseSize() + TodayStyles::kSizeStep);
  application_.markChanged();
}

void TodayScheduleView::decreaseFontSize() {
  if (baseSize() > TodayStyles::kSmallestSize) setFontSize(fitHeight_, baseSize() - TodayStyles::kSizeStep);
  application_.markChanged();
}

void TodayScheduleView::setBackgroundColor(NamedColor name) {
  backgroundColor_ = name;
  needsRedraw();
}

// Scrolling.

void TodayScheduleView::scrollToCurrentTime(Animate animate) {
  const QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  watchScrolling();
  scrollAnimation_->stop();
  QScrollBar& bar = *area->verticalScrollBar();
  const auto target =
      static_cast<int>(std::lround(layout_.scrollOffset(currentTime_, area->viewport()->height())));
  lastScrolled_.reset();
  if (target == bar.value()) return;
  if (animate == Animate::no) {
    bar.setValue(target);
    lastScrolled_.reset();
    return;
  }
  scrollAnimation_->setStartValue(bar.value());
  scrollAnimation_->setEndValue(target);
  scrollAnimation_->start();
}

void TodayScheduleView::viewDidScroll() {
  lastScrolled_ = services_.pretendTime.now();
}

void TodayScheduleView::watchScrolling() {
  QScrollArea* area = enclosingScrollArea();
  if (area == scroller_ || isClosing) return;
  if (scroller_) {
    scroller_->viewport()->removeEventFilter(this);
    disconnect(scroller_->verticalScrollBar(), nullptr, this, nullptr);
  }
  scroller_ = area;
  if (!area) return;
  area->viewport()->installEventFilter(this);
  const QScrollBar* bar = area->verticalScrollBar();
  connect(bar, &QScrollBar::valueChanged, this, [this] { viewDidScroll(); });
  // Who takes hold of it is not to be pulled along.
  connect(bar, &QScrollBar::actionTriggered, this, [this] { scrollAnimation_->stop(); });
}

bool TodayScheduleView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && scroller_ && watched == scroller_->viewport()) adjustSize();
  return DataLoadingView::eventFilter(watched, event);
}

void TodayScheduleView::showEvent(QShowEvent* event) {
  DataLoadingView::showEvent(event);
  watchScrolling();
  adjustSize();
}

void TodayScheduleView::changeEvent(QEvent* event) {
  DataLoadingView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) needsRedraw();
}

void TodayScheduleView::draw(QPainter& painter, const Rect& dirty) {
  paintTodayOrMessage(painter, weeklySchedule_.get(),
                      {layout_, scheduleItems_, styles_, dataModel_, currentTime_, appearanceOf(this)},
                      dirty);
  drawFocus(painter);
}

void TodayScheduleView::close() {
  isClosing = true;
  accessibleContentChanged();
  scrollAnimation_->stop();
  observations_.clear();
  wakeSubscription_.reset();
  if (!scroller_) return;
  scroller_->viewport()->removeEventFilter(this);
  disconnect(scroller_->verticalScrollBar(), nullptr, this, nullptr);
}

}  // namespace tarvel
