#include <QKeyEvent>
#include <QPainter>

#include "schedule/ItemInfoText.h"
#include "schedule/PagingView.h"
#include "schedule/SchedulePageView.h"
#include "schedule/SpokenSession.h"
#include "ui/FocusRing.h"

/// A schedule's page for those who come by the keyboard or with a screen reader; the rest of the page stands
/// in SchedulePageView.cpp.
///
/// The window turns the pages by the arrows to the left and right, and goes on doing so: the page takes them
/// only once the user has gone to it with the tab key, and passes on those that lead beyond its columns. A
/// click doesn't give it the keyboard.
namespace tarvel {
namespace {

std::optional<FocusStep> stepFor(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Up:
      return FocusStep::up;
    case Qt::Key_Down:
      return FocusStep::down;
    case Qt::Key_Left:
      return FocusStep::left;
    case Qt::Key_Right:
      return FocusStep::right;
    default:
      return std::nullopt;
  }
}

}  // namespace

ScheduleOutline SchedulePageView::outline() const {
  ScheduleOutline outline;
  if (isClosing || isAwaitingData || chosenRink_.expired()) return outline;
  const ScheduleGrid& grid = this->grid();
  for (std::int64_t k = 0; k < grid.columns; ++k) {
    ScheduleOutline::Column column;
    column.date = dateOfColumn(k);
    column.venueID = venueOfColumn(k);
    if (column.date == kNoDate) continue;
    column.id = QStringLiteral("%1/%2").arg(column.date).arg(column.venueID);
    column.name = QString::fromStdString(columnName(k));
    column.isToday = column.date == currentDate_;
    column.selected = isSelectedColumn(k);
    column.rect = {grid.columnX(k), 0.0, grid.columnWidth, grid.frame.height};
    for (const auto& item : itemsOfColumn(k)) {
      // One that takes no time isn't drawn either.
      if (item->duration <= 0) continue;
      const std::string name = dataModel_.sessionName(static_cast<std::int64_t>(item->kind));
      QString id = sessionKey(*item, column.date, column.venueID);
      while (!column.sessions.empty() && column.sessions.back().id == id) id += u'+';
      column.sessions.push_back({id, spokenSession(*item, column.date, name), item, grid.itemRect(k, *item)});
    }
    outline.columns.push_back(std::move(column));
  }
  return outline;
}

AccessibleNode SchedulePageView::accessibleTree() const {
  return outline().tree();
}

void SchedulePageView::pressAccessible(const QString& id) {
  const ScheduleOutline outline = this->outline();
  const auto [column, session] = outline.find(id);
  if (!column || !owner_) return;
  const std::int64_t minute = session ? session->item->time : pageInput_.dayRange.startOfDay;
  // A page of another kind may take this one's place, and this one is then closed.
  const QPointer<PagingView> pages = pagingView();
  owner_->setSelectedDate(column->date);
  owner_->gotoScheduleItem(column->venueID, column->date, minute);
  auto* page = pages ? dynamic_cast<SchedulePageView*>(pages->currView()) : nullptr;
  if (page) page->focusAccessible(id);
}

void SchedulePageView::focusAccessible(const QString& id) {
  const ScheduleOutline outline = this->outline();
  const ScheduleOutline::Spot spot = outline.find(id);
  if (!spot.column) return;
  focusedID_ = id;
  setNeedsDisplay(true);
  scrollTo(Animate::no, spot.rect().y, spot.session ? spot.rect().height : 0.0);
  tellFocused(spot);
  accessibleFocusChanged();
}

/// What the mouse tells of a session that it is over, the keyboard tells of the one that has the focus.
void SchedulePageView::tellFocused(const ScheduleOutline::Spot& spot) {
  if (!isCurrentPage() || !owner_->itemInfoShown()) return;
  if (!spot.session) return owner_->showItemInfo({});
  const ScheduleItem& item = *spot.session->item;
  owner_->showItemInfo(
      itemInfoText(item, spot.column->date, dataModel_.sessionName(static_cast<std::int64_t>(item.kind))));
}

void SchedulePageView::takeFocus(Qt::FocusReason reason) {
  const ScheduleOutline outline = this->outline();
  if (outline.find(focusedID_).column) return focusAccessible(focusedID_);
  const AccessibleNode tree = outline.tree();
  const ScheduleOutline::Spot now = outline.spotNow(currentTime_);
  if (reason == Qt::TabFocusReason && now.session) return focusAccessible(now.session->id);
  focusAccessible(endOf(tree, reason == Qt::BacktabFocusReason ? FocusEnd::last : FocusEnd::first));
}

void SchedulePageView::findFocus() {
  if (hasKeyboardFocus(*this) && accessibleFocus().isEmpty()) takeFocus(Qt::TabFocusReason);
}

void SchedulePageView::focusInEvent(QFocusEvent* event) {
  PagedView::focusInEvent(event);
  if (hasKeyboardFocus(*this)) takeFocus(event->reason());
  needsRedraw();
}

void SchedulePageView::focusOutEvent(QFocusEvent* event) {
  PagedView::focusOutEvent(event);
  needsRedraw();
}

void SchedulePageView::keyPressEvent(QKeyEvent* event) {
  const QString focused = hasKeyboardFocus(*this) ? accessibleFocus() : QString();
  const auto step = stepFor(*event);
  event->setAccepted(true);
  if (step && !focused.isEmpty()) {
    const QString next = neighbourOf(accessibleTree(), focused, *step);
    if (!next.isEmpty()) return focusAccessible(next);
    // Above the first session and below the last one there is nothing to go to, nor for the window.
    if (*step == FocusStep::up || *step == FocusStep::down) return;
  }
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens && !focused.isEmpty()) return pressAccessible(focused);
  if (event->key() == Qt::Key_Space && !focused.isEmpty() && owner_) {
    return owner_->setSelectedDate(outline().find(focused).column->date);
  }
  PagedView::keyPressEvent(event);
}

QString SchedulePageView::accessibleFocus() const {
  return outline().find(focusedID_).column ? focusedID_ : QString();
}

void SchedulePageView::drawFocus(QPainter& painter) const {
  if (!hasKeyboardFocus(*this)) return;
  const ScheduleOutline outline = this->outline();
  const ScheduleOutline::Spot spot = outline.find(focusedID_);
  if (!spot.column) return;
  const Rect& rect = spot.rect();
  drawFocusRing(painter, {rect.x, rect.y, rect.width, rect.height}, *this);
}

}  // namespace tarvel
