#include "model/ScheduleItem.h"

#include "foundation/TextFormats.h"

namespace tarvel {

namespace {
constexpr std::int64_t kMinutesPerDay = 1440;
}

PackedDate ScheduleItem::realDate() const {
  const PackedDate filed = day >= 0 ? addDays(weekOf_, day) : subtractDays(weekOf_, -day);
  return time >= kMinutesPerDay ? nextDay(filed) : filed;
}

std::int64_t ScheduleItem::realTime() const {
  return time >= kMinutesPerDay ? time - kMinutesPerDay : time;
}

std::string ScheduleItem::displayName(std::string_view separator) const {
  std::string name(builtInName(kind));
  if (subtitle.empty()) return name;
  if (kind == SessionKind::other || kind == SessionKind::skatingSchool) return subtitle;
  return name + std::string(separator) + subtitle;
}

std::string ScheduleItem::description() const {
  const PackedDate date = realDate();
  std::string text(weekdayName(weekdayOf(date)));
  text += "\n" + shortDateText(date);
  text += "\n" + timeText(realTime()) + " - " + timeText(realTime() + duration);
  text += "\n(" + durationText(duration) + ")";
  text += "\n\n" + std::string(builtInName(kind));
  if (!subtitle.empty()) text += "\n" + subtitle;
  if (!note.empty()) text += "\n\n" + note;
  return text;
}

}  // namespace tarvel
