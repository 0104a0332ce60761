#include "Checks.h"
#include "Targets.h"
#include "model/FileNames.h"
#include "platform/FileSystem.h"

namespace tarvel::fuzz {

namespace {

void checkPlainName(std::string_view name) {
  if (!isPlainFileName(name)) return;
  const Path path = join("/store/rink-7", name);
  require(parentOf(path) == "/store/rink-7" && fileNameOf(path) == name, "a plain name stays in its folder");
}

/// A name may tell a day that no calendar has. That must not lead the arithmetic outside its tables.
void checkDate(PackedDate date) {
  if (yearOf(date) <= 2000) return;
  require(weekdayOf(date) >= 0 && weekdayOf(date) <= 6, "a day has a weekday");
  (void)fullDateText(date);
  const PackedDate sunday = startOfWeek(date);
  const bool real = monthOf(date) >= 1 && monthOf(date) <= 12 && dayOf(date) >= 1 &&
                    dayOf(date) <= daysInMonth(yearOf(date), monthOf(date));
  require(!real || weekdayOf(sunday) == 0, "a week begins on a Sunday");
  require(!real || nextDay(previousDay(date)) == date, "the day after the day before is the day");
}

}  // namespace

void fileNames(ByteView input) {
  const std::string name(input.begin(), input.end());
  checkPlainName(name);
  if (const auto venueID = parseSchedulesFileName(name)) {
    require(isPlainFileName(name), "a schedules file's name is a plain one");
    require(parseSchedulesFileName(schedulesFileName(*venueID)) == venueID, "an id comes back from its name");
  }
  if (const auto week = parseWeekName(name)) {
    require(isPlainFileName(name), "a week file's name is a plain one");
    const std::string own = weekFileName(week->venueID, week->weekOf);
    require(parseWeekName(withoutExtension(own)) == week, "a week comes back from its name");
    checkDate(week->weekOf);
  }
  if (const auto number = parseInteger(name))
    require(parseInteger(std::to_string(*number)) == number, "a number comes back from its text");
  const std::string extension = extensionOf(name);
  require(extension.empty() || withoutExtension(name) + "." + extension == name,
          "a name is its base and its extension");
}

}  // namespace tarvel::fuzz
