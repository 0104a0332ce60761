#include "schedule/CalendarView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "schedule/CalendarPainter.h"

namespace tarvel {

CalendarView::CalendarView(const WindowContext& context, QWidget* parent)
    : ScrollableView(context.services.notifications, parent),
      clock_(context.services.clock),
      pretendTime_(context.services.pretendTime),
      mainState_(*this, [this](bool) { needsRedraw(); }) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Calendar"));
  NotificationCenter& center = context.services.notifications;
  observations_.push_back(
      center.observe(kCurrentDateChanged, [this](const Notification&) { needsRedraw(); }));
  // Today is the machine's, which may change at another time than the rinks', also with the machine's zone.
  observations_.push_back(center.observe(kCurrentTimeOfDayChanged, [this](const Notification&) {
    if (todayDate(pretendTime_) != shownToday_) needsRedraw();
  }));
  observations_.push_back(center.observe(
      kCheckObservers,
      [&census = context.observerCensus](const Notification&) { census.checkObservers("CalendarView"); }));
  watchSuperview();
}

void CalendarView::close() {
  observations_.clear();
  isClosing_ = true;
  accessibleContentChanged();
}

void CalendarView::needsRedraw() {
  if (!isClosing_) update();
}

bool CalendarView::setDate(PackedDate date, Animate animate) {
  const PackedDate allowed = layout_.clamped(date);
  const bool changes = allowed != currentDate_;
  if (changes) {
    currentDate_ = allowed;
    updateSelection(animate);
  } else if (!suppressScrolling_) {
    scrollToCurrentDate(animate);
  }
  return changes;
}

void CalendarView::setPeriodOption(PeriodViewOption option) {
  if (option == selection_.period) return;
  // Under the new option the same span may be drawn in another way.
  selection_.period = option;
  needsRedraw();
  updateSelection(Animate::no);
}

void CalendarView::updateSelection(Animate animate) {
  if (currentDate_ == kNoDate) return;
  const auto selection = CalendarSelection::around(currentDate_, selection_.period);
  if (selection == selection_) return;
  selection_ = selection;
  setAccessibleDescription(QString::fromStdString(selection_.text()));
  needsRedraw();
  accessibleSelectionChanged();
  accessibleFocusChanged();
  notifications().postNotification(kCalendarSelectionChanged, this);
  if (!suppressScrolling_) scrollToCurrentDate(animate);
}

void CalendarView::setRange(PackedDate minimumDate, PackedDate maximumDate) {
  if (minimumDate == layout_.minimumDate() && maximumDate == layout_.maximumDate()) return;
  layout_ = CalendarLayout(minimumDate, maximumDate);
  layout_.setWidth(width());
  adjustSize();
  needsRedraw();
  accessibleContentChanged();
}

void CalendarView::adjustSize() {
  const QWidget* superview = parentWidget();
  if (!superview || isClosing_) return;
  // Without months the view is no more than the surface of what can be seen.
  const int monthsHeight = layout_.monthCount() > 0 ? static_cast<int>(std::ceil(layout_.height())) : 0;
  layout_.setWidth(superview->width());
  resize(superview->width(), std::max(superview->height(), monthsHeight));
}

void CalendarView::scrollToCurrentDate(Animate animate) {
  const QWidget* superview = parentWidget();
  if (!superview || isClosing_) return;
  scrollsWhenShown_ = !isVisible();
  if (scrollsWhenShown_) return;
  const auto neighbours = preferFuture_ ? NeighbourMonths::coming : NeighbourMonths::past;
  const auto top = layout_.scrollTop(currentDate_, superview->height(), neighbours);
  // A band of the room's own height is shown from its top.
  if (top) scrollTo(animate, *top, superview->height());
}

void CalendarView::gotoDate(PackedDate date) {
  const double now = clock_.monotonicSeconds();
  if (prevTime_ && now - *prevTime_ < kCommandSeconds) return;
  setDate(date, Animate::yes);
  prevTime_ = now;
}

void CalendarView::gotoPrev() {
  gotoDate(previousInPeriods(currentDate_, selection_.period));
}

void CalendarView::gotoNext() {
  gotoDate(nextInPeriods(currentDate_, selection_.period));
}

void CalendarView::gotoToday() {
  gotoDate(todayDate(pretendTime_));
}

std::optional<PackedDate> CalendarView::dateForKey(int key) const {
  // Steps that stay within the selection would show nothing, so none is smaller than the period.
  const PeriodViewOption period = selection_.period;
  const PeriodViewOption row = std::max(period, PeriodViewOption::week);
  switch (key) {
    case Qt::Key_Left:
      return previousInPeriods(currentDate_, period);
    case Qt::Key_Right:
      return nextInPeriods(currentDate_, period);
    case Qt::Key_Up:
      return previousInPeriods(currentDate_, row);
    case Qt::Key_Down:
      return nextInPeriods(currentDate_, row);
    case Qt::Key_PageUp:
      return previousInPeriods(currentDate_, PeriodViewOption::month);
    case Qt::Key_PageDown:
      return nextInPeriods(currentDate_, PeriodViewOption::month);
    case Qt::Key_Home:
      return layout_.minimumDate();
    case Qt::Key_End:
      return layout_.maximumDate();
    default:
      return std::nullopt;
  }
}

void CalendarView::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const auto date = plain ? dateForKey(event->key()) : std::nullopt;
  if (!date) return ScrollableView::keyPressEvent(event);
  setShowsFocus(true);
  gotoDate(*date);
}

void CalendarView::focusInEvent(QFocusEvent* event) {
  // One who clicks sees where that was; one who comes by the keyboard has to be shown.
  const bool byKeyboard = event->reason() == Qt::TabFocusReason ||
                          event->reason() == Qt::BacktabFocusReason ||
                          event->reason() == Qt::ShortcutFocusReason;
  if (byKeyboard) scrollToCurrentDate(Animate::yes);
  setShowsFocus(event->reason() != Qt::MouseFocusReason);
  accessibleFocusChanged();
}

void CalendarView::focusOutEvent(QFocusEvent*) {
  setShowsFocus(false);
}

void CalendarView::setShowsFocus(bool shows) {
  if (shows == showsFocus_) return;
  showsFocus_ = shows;
  needsRedraw();
}

void CalendarView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return ScrollableView::mousePressEvent(event);
  const QPointF place = event->position();
  const auto date = layout_.hit({place.x(), place.y()}, selection_.period);
  if (date) chooseDate(*date);
}

void CalendarView::chooseDate(PackedDate date) {
  // The months under the pointer stay where they are.
  suppressScrolling_ = true;
  setDate(date, Animate::no);
  suppressScrolling_ = false;
}

void CalendarView::paintEvent(QPaintEvent* event) {
  if (isClosing_) return;
  QPainter painter(this);
  const QRect dirty = event->rect();
  shownToday_ = todayDate(pretendTime_);
  const CalendarPicture picture{layout_,     selection_,        shownToday_, mainState_.isMain(),
                                showsFocus_, appearanceOf(this)};
  paintCalendar(painter, picture,
                {double(dirty.x()), double(dirty.y()), double(dirty.width()), double(dirty.height())});
}

void CalendarView::resizeEvent(QResizeEvent* event) {
  layout_.setWidth(width());
  ScrollableView::resizeEvent(event);
}

void CalendarView::showEvent(QShowEvent* event) {
  adjustSize();
  if (scrollsWhenShown_) scrollToCurrentDate(Animate::no);
  ScrollableView::showEvent(event);
}

void CalendarView::changeEvent(QEvent* event) {
  ScrollableView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) needsRedraw();
}

void CalendarView::watchSuperview() {
  if (!parentWidget()) return;
  parentWidget()->installEventFilter(this);
  adjustSize();
}

bool CalendarView::event(QEvent* event) {
  if (event->type() == QEvent::ParentAboutToChange && parentWidget()) parentWidget()->removeEventFilter(this);
  if (event->type() == QEvent::ParentChange) watchSuperview();
  return ScrollableView::event(event);
}

bool CalendarView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) adjustSize();
  return ScrollableView::eventFilter(watched, event);
}

}  // namespace tarvel
