#include "schedule/ItemInfoText.h"

#include <fmt/format.h>

#include "foundation/TextFormats.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {
namespace {

constexpr int kFirstShortYear = 2000;
constexpr int kLastShortYear = 2099;

// This text shortens the years of this century only, unlike the other short dates.
std::string infoDateText(PackedDate date) {
  const int year = yearOf(date);
  const bool isShort = year >= kFirstShortYear && year <= kLastShortYear;
  return fmt::format("{}/{}/{:02}", monthOf(date), dayOf(date), isShort ? year - kFirstShortYear : year);
}

std::string infoText(PackedDate date, std::int64_t start, std::int64_t end, std::string_view what) {
  return fmt::format("{}\n{}\n{} - {}\n({})\n\n{}", weekdayName(weekdayOf(date)), infoDateText(date),
                     timeText(start), timeText(end), durationText(end - start), what);
}

}  // namespace

std::string itemInfoText(const ScheduleItem& item, PackedDate filedOn, const std::string& sessionName) {
  const PackedDate date = item.time >= kMinutesPerDay ? nextDay(filedOn) : filedOn;
  const bool both = !sessionName.empty() && !item.subtitle.empty();
  return infoText(date, item.time, item.time + item.duration,
                  sessionName + (both ? "\n" : "") + item.subtitle);
}

std::string gapInfoText(const ScheduleSpot& gap, PackedDate date, std::string_view gapName) {
  return infoText(date, gap.gapStart, gap.gapEnd, gapName);
}

}  // namespace tarvel
