#include "DemoNotices.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "Random.h"

namespace tarvel::demo {
namespace {

struct NoticeText {
  const char* summary;
  const char* detail;
};

// {} stands for a day within the next weeks.
constexpr std::array kTexts = {
    NoticeText{"Early closing on {}",
               "The building closes at 6:00 pm on {} for maintenance of the refrigeration plant. All evening "
               "sessions "
               "are cancelled; tickets bought in advance are refunded at the front desk."},
    NoticeText{
        "Learn to Skate registration is open",
        "The next eight-week session begins on {}. Classes fill quickly, above all on Saturday mornings. "
        "Returning skaters keep their place until the Friday before.\n\nQuestions? Ask at the front desk."},
    NoticeText{"Extra public session on {}",
               "By popular demand: an additional public session from 1:00 to 3:00 pm. "
               "Admission as usual, skate rental is free for children under six."},
    NoticeText{"Skate sharpening is back",
               "The pro shop sharpens skates every day from 3:00 to 8:00 pm. Figure skates by appointment."},
    NoticeText{
        "Parking lot repaving",
        "Until {} the north half of the parking lot is closed. Please use the overflow lot across the street "
        "and allow ten extra minutes."},
    NoticeText{
        "Club exhibition on {}",
        "Our skaters show their new programs. Doors open at 5:30 pm, admission is free, donations go to the "
        "scholarship fund. Freestyle sessions that evening are cancelled."},
    NoticeText{"Lost and found",
               "Mittens, water bottles, one very small hockey glove: whatever has not been claimed by {} "
               "goes to the "
               "clothing drive."},
    NoticeText{"Adult league signups end on {}",
               "Divisions A to C, and a new division for beginners. Games are played "
               "on weekday evenings after 8:30 pm."},
};

}  // namespace

std::vector<DemoNotice> firstNotices(const DemoRink& rink, std::uint64_t seed, PackedDate today) {
  constexpr std::uint64_t kNoticesKey = 0x6E6F74;
  constexpr int kLongestAgo = 14;
  Random random{seed, kNoticesKey, static_cast<std::uint64_t>(rink.rinkID)};
  const int count = random.below(5);
  const int first = random.below(static_cast<int>(kTexts.size()));
  std::vector<DemoNotice> notices;
  int daysAgo = 0;
  for (int i = 0; i < count; ++i) {
    const NoticeText& text = kTexts.at(static_cast<std::size_t>(first + 3 * i) % kTexts.size());
    daysAgo = std::min(daysAgo + random.below(5), kLongestAgo);
    const PackedDate day = addDays(today, 4 + random.below(20));
    const std::string dayText =
        fmt::format("{}, {} {}", weekdayName(weekdayOf(day)), monthName(monthOf(day)), dayOf(day));
    notices.push_back({count - i, subtractDays(today, daysAgo),
                       fmt::format(fmt::runtime(text.summary), dayText),
                       fmt::format(fmt::runtime(text.detail), dayText)});
  }
  return notices;
}

}  // namespace tarvel::demo
