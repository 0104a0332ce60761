#include "schedule/ScheduleOutline.h"

namespace tarvel {
namespace {

QRectF asQRectF(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QString summaryOf(const ScheduleOutline::Column& column) {
  const QString today = column.isToday ? QStringLiteral("Today, ") : QString();
  if (column.sessions.empty()) return today + QStringLiteral("no sessions");
  if (column.sessions.size() == 1) return today + QStringLiteral("1 session");
  return today + QStringLiteral("%1 sessions").arg(column.sessions.size());
}

AccessibleNode cellOf(const ScheduleOutline::Session& session) {
  AccessibleNode cell;
  cell.id = session.id;
  cell.role = QAccessible::Cell;
  cell.name = session.name;
  cell.rect = asQRectF(session.rect);
  cell.focusable = true;
  cell.action = QStringLiteral("Show closer");
  return cell;
}

AccessibleNode rowOf(const ScheduleOutline::Column& column) {
  AccessibleNode row;
  row.id = column.id;
  row.role = QAccessible::Row;
  row.name = column.name;
  row.description = summaryOf(column);
  row.rect = asQRectF(column.rect);
  // Those who go through the sessions are led to the day itself only where there is none.
  row.focusable = column.sessions.empty();
  row.selectable = true;
  row.selected = column.selected;
  row.action = QStringLiteral("Show closer");
  for (const ScheduleOutline::Session& session : column.sessions) row.children.push_back(cellOf(session));
  return row;
}

}  // namespace

ScheduleOutline::Spot ScheduleOutline::find(const QString& id) const {
  for (const Column& column : columns) {
    if (column.id == id) return {&column, nullptr};
    for (const Session& session : column.sessions) {
      if (session.id == id) return {&column, &session};
    }
  }
  return {};
}

ScheduleOutline::Spot ScheduleOutline::spotNow(std::int64_t minute) const {
  for (const Column& column : columns) {
    if (!column.isToday) continue;
    for (const Session& session : column.sessions) {
      if (minute < session.item->time + session.item->duration) return {&column, &session};
    }
  }
  return {};
}

AccessibleNode ScheduleOutline::tree() const {
  AccessibleNode table;
  table.role = QAccessible::Table;
  for (const Column& column : columns) table.children.push_back(rowOf(column));
  return table;
}

}  // namespace tarvel
