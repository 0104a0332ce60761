#pragma once
#include <QString>

#include "model/ScheduleItem.h"

namespace tarvel {

/// A session as a screen reader says it: "Public Session, 1:00 pm to 3:00 pm, Adults, Skates for hire,
/// Saturday, March 14, 2026", with the subtitle and the note if it has them. `sessionName` is the published
/// name of its kind, `filedOn` the day of its column; one that begins after its midnight says the day after.
QString spokenSession(const ScheduleItem& item, PackedDate filedOn, const std::string& sessionName);

/// What names the session among the others on show for as long as nothing of it changes.
QString sessionKey(const ScheduleItem& item, PackedDate filedOn, std::int64_t venueID);

}  // namespace tarvel
