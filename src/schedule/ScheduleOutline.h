#pragma once
#include <memory>
#include <vector>

#include "model/ScheduleItem.h"
#include "platform/Geometry.h"
#include "ui/AccessibleNode.h"

namespace tarvel {

/// What a schedule's page shows, without its looks: columns and their sessions, each with an id and a place.
/// The keyboard's focus walks through it, and screen readers are told of it. A value, made when it is needed.
struct ScheduleOutline {
  struct Session {
    QString id;
    QString name;
    std::shared_ptr<const ScheduleItem> item;
    Rect rect;
  };
  struct Column {
    QString id;
    QString name;
    PackedDate date = kNoDate;
    std::int64_t venueID = 0;
    bool isToday = false;
    bool selected = false;
    Rect rect;
    std::vector<Session> sessions;
  };
  /// A column, and one of its sessions, or none for the column as a whole.
  struct Spot {
    const Column* column = nullptr;
    const Session* session = nullptr;
    const Rect& rect() const { return session ? session->rect : column->rect; }
  };

  std::vector<Column> columns;

  /// No column if the page doesn't show that id.
  Spot find(const QString& id) const;
  /// The session that is on at that minute of today, or the next one; no column if there is none.
  Spot spotNow(std::int64_t minute) const;
  /// The page as a table: a column becomes a row of its sessions, since they lie one after another.
  AccessibleNode tree() const;
};

}  // namespace tarvel
