#include <cstdlib>

#include "schedule/CalendarView.h"

/// The calendar for screen readers; the rest of it stands in CalendarView.cpp.
namespace tarvel {
namespace {

constexpr int kMonthsTold = 24;  // to each side of the current one

QRectF asQRectF(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

}  // namespace

AccessibleNode CalendarView::monthNode(int index) const {
  const CalendarMonth month = layout_.month(index, selection_);
  const PackedDate today = todayDate(pretendTime_);
  AccessibleNode row;
  row.id = text(month.title);
  row.role = QAccessible::Row;
  row.name = row.id;
  row.rect = asQRectF(month.titleRect);
  for (const CalendarDay& day : month.days) {
    AccessibleNode cell;
    cell.id = QString::number(day.date);
    cell.role = QAccessible::Cell;
    cell.name = text(fullDateText(day.date));
    cell.description = day.date == today ? QStringLiteral("Today") : QString();
    cell.rect = asQRectF(day.cell);
    const bool inRange = day.date == layout_.clamped(day.date);
    cell.focusable = cell.selectable = inRange && isEnabled();
    cell.selected = selection_.contains(day.date);
    cell.action = cell.focusable ? QStringLiteral("Go to this date") : QString();
    row.rect |= cell.rect;
    row.children.push_back(cell);
  }
  return row;
}

AccessibleNode CalendarView::accessibleTree() const {
  AccessibleNode table;
  table.role = QAccessible::Table;
  if (isClosing_) return table;
  const int current = layout_.monthIndex(currentDate_).value_or(0);
  for (int index = 0; index < layout_.monthCount(); ++index) {
    if (std::abs(index - current) <= kMonthsTold) table.children.push_back(monthNode(index));
  }
  return table;
}

QString CalendarView::accessibleFocus() const {
  return currentDate_ == kNoDate ? QString() : QString::number(currentDate_);
}

void CalendarView::pressAccessible(const QString& id) {
  bool isNumber = false;
  const PackedDate date = id.toUInt(&isNumber);
  if (isNumber && !isClosing_ && isEnabled() && layout_.monthIndex(date)) chooseDate(date);
}

}  // namespace tarvel
