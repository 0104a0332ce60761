#include "simulation/ShownWatch.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "model/FileNames.h"
#include "model/StoredFile.h"
#include "simulation/StoredFiles.h"

namespace tarvel::sim {

namespace {

// Far above what the servers ever publish at once.
constexpr std::int64_t kMostRinks = 60, kMostVenues = 300, kMostWeeks = 4'000, kMostPhotos = 400;
constexpr std::size_t kMostMessages = 500, kMostErrorText = 40'000, kMostFlights = 400;

bool stillOffered(const WeeklySchedule& week, const RinkData& rink) {
  return std::any_of(rink.venues.begin(), rink.venues.end(), [&](const auto& venue) {
    return venue.get() == &week.venue() && venue->schedulesCache &&
           std::any_of(venue->schedulesCache->begin(), venue->schedulesCache->end(),
                       [&](const auto& schedule) { return schedule.get() == &week; });
  });
}

/// A damaged name may be that of another file too: what is promised last counts.
std::map<std::string, Instant> lastPromises(const std::vector<FileRecord>& records) {
  std::map<std::string, Instant> promised;
  for (const FileRecord& record : records) promised.insert_or_assign(record.name, record.date);
  return promised;
}

}  // namespace

ShownWatch::Summary ShownWatch::summary() const {
  Summary sum;
  sum.rinks = program_.model.rinkList.size();
  for (const auto& rink : program_.model.recentRinks) {
    sum.venues += rink->venues.size();
    if (rink->noticesCache) sum.entries += rink->noticesCache->size();
    if (rink->photoListCache) sum.entries += rink->photoListCache->size();
    sum.lists += std::size_t{rink->noticesCache.has_value()} + std::size_t{rink->photoListCache.has_value()};
    for (const auto& venue : rink->venues) {
      if (venue->schedulesCache) sum.entries += venue->schedulesCache->size();
      sum.lists += std::size_t{venue->schedulesCache.has_value()};
    }
  }
  return sum;
}

void ShownWatch::noteShown(RinkData& rink) {
  forgetGone();
  std::erase_if(weeks_, [&](const auto& weak) { return &weak.lock()->venue().rinkData() == &rink; });
  for (const auto& venue : rink.venues) {
    if (!venue->schedulesCache) continue;
    for (const auto& week : *venue->schedulesCache) {
      // Asking for a week that isn't at hand would request it; these are the ones that the view asks for.
      const bool inView = week->weekOf >= startOfWeek(rink.dateNow());
      if (inView && week->items()) weeks_.push_back(week);
    }
  }
  last_ = summary();
}

void ShownWatch::forgetGone() {
  std::erase_if(weeks_, [&](const auto& weak) {
    const auto week = weak.lock();
    return !week || std::none_of(program_.model.recentRinks.begin(), program_.model.recentRinks.end(),
                                 [&](const auto& rink) { return stillOffered(*week, *rink); });
  });
}

void ShownWatch::delivered(const std::string& key, Delivery delivery) {
  if (delivery == Delivery::failed) {
    const Summary now = summary();
    const bool less = now.rinks < last_.rinks || now.venues < last_.venues || now.lists < last_.lists ||
                      now.entries < last_.entries;
    if (less) return alarms_.ring(Alarm::vanished, "after " + key + " has failed");
    last_ = now;
  } else {
    last_ = summary();
    forgetGone();
  }
  for (const auto& weak : weeks_) {
    const auto week = weak.lock();
    if (!week || !week->items()) return alarms_.ring(Alarm::vanished, "a week, after " + key);
  }
}

std::optional<std::string> ShownWatch::missing(RinkData& rink, const MemoryFileSystem& disk,
                                               PackedDate firstShown) {
  const Bytes* const main = disk.peek(join(rink.rinkSupportFolderURL(), kMainFileName));
  if (!main) return std::nullopt;
  FileSystem& files = rink.services().files;
  for (const auto& [fileName, date] : lastPromises(decodeMainFile(*main).files)) {
    const Path path = join(rink.rinkSupportFolderURL(), fileName);
    const auto venueID = parseSchedulesFileName(fileName);
    const Bytes* const schedules = venueID ? disk.peek(path) : nullptr;
    if (!schedules || storedDate(files, path) != date) continue;
    const auto venue = rink.venue(*venueID);
    if (!venue) continue;
    for (const auto& [weekFile, weekDate] : lastPromises(decodeSchedulesFile(*schedules).weeks)) {
      const auto name = parseWeekName(withoutExtension(weekFile));
      const bool offered = name && name->weekOf >= firstShown && name->weekOf <= rink.lastWeek;
      if (!offered || storedDate(files, join(rink.rinkSupportFolderURL(), weekFile)) != weekDate) continue;
      const auto schedule = venue->weeklySchedule(name->weekOf);
      if (!schedule || !schedule->items())
        return fmt::format("{} of rink {} at a start", weekFile, rink.rinkID);
    }
  }
  return std::nullopt;
}

void ShownWatch::checkMemory(std::size_t flights) {
  const auto cap = [&](const char* what, auto count, auto most) {
    if (count > most) alarms_.ring(Alarm::memory, fmt::format("{} {}", count, what));
  };
  cap("rinks", RinkData::liveCount(), kMostRinks);
  cap("venues", Venue::liveCount(), kMostVenues);
  cap("weeks", WeeklySchedule::liveCount(), kMostWeeks);
  cap("photos", Photo::liveCount(), kMostPhotos);
  cap("messages", program_.log->logMessages().size(), kMostMessages);
  cap("requests", flights, kMostFlights);
  for (const auto& rink : program_.model.recentRinks)
    cap("characters of errors", rink->refreshState.errorLog.size(), kMostErrorText);
}

}  // namespace tarvel::sim
