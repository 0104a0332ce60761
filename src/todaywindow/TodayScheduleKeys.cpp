#include <QKeyEvent>
#include <QPainter>

#include "schedule/SpokenSession.h"
#include "todaywindow/TodayScheduleView.h"
#include "ui/FocusRing.h"

/// The day's sessions for those who come by the keyboard or with a screen reader; the rest of the view stands
/// in TodayScheduleView.cpp.
namespace tarvel {

AccessibleNode TodayScheduleView::accessibleTree() const {
  AccessibleNode list;
  list.role = QAccessible::List;
  if (isClosing || isAwaitingData) return list;
  const ScheduleItem* now = todayItemAt(scheduleItems_, currentTime_);
  for (const auto& item : scheduleItems_) {
    // One that takes no time isn't drawn either.
    if (item->duration <= 0) continue;
    const std::string name = dataModel_.sessionName(static_cast<std::int64_t>(item->kind));
    const Rect bar = layout_.barRect(*item);
    AccessibleNode node;
    node.id = sessionKey(*item, currentDate_, 0);
    while (!list.children.empty() && list.children.back().id == node.id) node.id += u'+';
    node.name = spokenSession(*item, currentDate_, name);
    node.description = item.get() == now ? QStringLiteral("Now") : QString();
    node.rect = QRectF(bar.x, bar.y, bar.width, bar.height);
    node.focusable = true;
    list.children.push_back(std::move(node));
  }
  return list;
}

QString TodayScheduleView::accessibleFocus() const {
  return findNode(accessibleTree(), focusedID_) ? focusedID_ : QString();
}

void TodayScheduleView::focusAccessible(const QString& id) {
  const AccessibleNode tree = accessibleTree();
  const AccessibleNode* node = findNode(tree, id);
  if (!node) return;
  focusedID_ = id;
  scrollTo(Animate::no, node->rect.y(), node->rect.height());
  needsRedraw();
  accessibleFocusChanged();
}

void TodayScheduleView::focusInEvent(QFocusEvent* event) {
  DataLoadingView::focusInEvent(event);
  needsRedraw();
  if (!hasKeyboardFocus(*this)) return;
  const AccessibleNode tree = accessibleTree();
  QString wanted = accessibleFocus();
  for (const AccessibleNode& node : tree.children) {
    if (wanted.isEmpty() && !node.description.isEmpty()) wanted = node.id;
  }
  focusAccessible(wanted.isEmpty() ? endOf(tree, FocusEnd::first) : wanted);
}

void TodayScheduleView::focusOutEvent(QFocusEvent* event) {
  DataLoadingView::focusOutEvent(event);
  needsRedraw();
}

void TodayScheduleView::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const bool isDown = event->key() == Qt::Key_Down;
  const QString focused = hasKeyboardFocus(*this) ? accessibleFocus() : QString();
  if (focused.isEmpty() || !plain || (!isDown && event->key() != Qt::Key_Up))
    return DataLoadingView::keyPressEvent(event);
  focusAccessible(neighbourOf(accessibleTree(), focused, isDown ? FocusStep::down : FocusStep::up));
}

void TodayScheduleView::drawFocus(QPainter& painter) const {
  if (!hasKeyboardFocus(*this)) return;
  const AccessibleNode tree = accessibleTree();
  if (const AccessibleNode* node = findNode(tree, focusedID_)) drawFocusRing(painter, node->rect, *this);
}

}  // namespace tarvel
