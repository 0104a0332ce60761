#include <fmt/format.h>

#include <algorithm>

#include "foundation/TextFormats.h"
#include "model/FileNames.h"
#include "model/StoredFile.h"
#include "refresh/RinkRefresh.h"
#include "refresh/RootFile.h"

/// What each of a rink's files brings about when it arrives. Every handler decodes its file whole before it
/// stores it, and stores it before it uses it.
namespace tarvel {

namespace {
constexpr std::int64_t kDaysPerWeek = 7;
}

std::string RinkRefresh::receivedLine(std::string_view what, std::string_view of, ByteView body) const {
  return fmt::format("received {} file for {}{}{} bytes", what, rink_.refreshName(), of, body.size());
}

void RinkRefresh::store(ByteView body, const std::string& name, Instant date) {
  storeFile(services_, rink_.messageLog(), body, name, rink_.rinkSupportFolderURL(), date);
}

void RinkRefresh::masterFileReceived(ByteView body) {
  services_.console.printLine(receivedLine("master", "  ", body));
  const MasterFile master = decodeMasterFile(body);
  rink_.mainFileDate = master.mainFileDate;
  const bool current = isPlainFileName(master.mainFileName) &&
                       rink_.storedFileDate(master.mainFileName) == master.mainFileDate;
  if (current) {
    updateMain();
  } else {
    requestFile("/" + std::string(kMainFileName));
  }
}

void RinkRefresh::updateMain() {
  services_.console.printLine("updateMain for " + rink_.refreshName());
  rink_.readMainFile();
  // The stored header is current and could not be read, and the request of that time has failed too.
  if (!rink_.hasHeader()) requestFile("/" + std::string(kMainFileName));
  if (rink_.regainWeeks()) rink_.postNotification(kDateRangeChanged);
  for (const auto& venue : rink_.venues) updateVenue(*venue);
  updateNotices();
  updatePhotoCollection();
}

void RinkRefresh::updateNotices() {
  const std::optional<Instant> stored = rink_.storedFileDate(std::string(kNoticesFileName));
  if (stored && stored != rink_.noticesFileDate) requestFile("/" + std::string(kNoticesFileName));
}

void RinkRefresh::updateVenue(Venue& venue) {
  const std::optional<Instant> stored = rink_.storedFileDate(venue.schedulesFileName());
  // What was never fetched comes when a view first asks for it.
  if (!stored) return;
  if (stored == venue.schedulesFileDate) {
    updateSchedules(venue);
  } else {
    requestSchedulesFile(venue);
  }
}

void RinkRefresh::mainFileReceived(ByteView body) {
  services_.console.printLine(receivedLine("main", "  ", body));
  const MainFile file = decodeMainFile(body);
  store(body, std::string(kMainFileName), file.fileDate);
  if (rink_.offerWeeks(file.firstWeek, file.lastWeek)) rink_.postNotification(kDateRangeChanged);
  if (rink_.mergeVenues(file.venues)) {
    removeWeeksOfGoneVenues();
    rink_.postNotification(kVenuesChanged);
  }
  for (const FileRecord& record : file.files) {
    if (const std::shared_ptr<Venue> venue = rink_.adoptPromise(record)) updateVenue(*venue);
    if (record.name == kNoticesFileName) updateNotices();
    if (record.name == kPhotoCollectionFileName) updatePhotoCollection();
  }
  rink_.setPhotosFolder(file.photosFolder);
  rink_.adoptCoverPhoto(file);
  rink_.postNotification(kCoverPhotoChanged);
  rink_.mainFileRead = true;
  if (rink_.mainFileDate && *rink_.mainFileDate != file.fileDate) {
    reportMismatch("date mismatch for main.b1 - " + rink_.refreshName() + "\n    modified  " +
                   dateText(file.fileDate) + "\n    expected  " + dateText(rink_.mainFileDate));
  }
}

void RinkRefresh::removeWeeksOfGoneVenues() {
  const auto entries = listVisible(services_.files, rink_.rinkSupportFolderURL());
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    if (entry.kind == FileKind::folder) continue;
    const std::optional<WeekName> week = parseWeekName(withoutExtension(entry.name));
    if (week && !rink_.venue(week->venueID)) {
      removeStoredFile(services_, join(rink_.rinkSupportFolderURL(), entry.name));
    }
  }
}

void RinkRefresh::noticesFileReceived(ByteView body) {
  services_.console.printLine(receivedLine("notices", "  ", body));
  NoticesFile file = decodeNoticesFile(body);
  const Instant fileDate = file.fileDate;
  store(body, std::string(kNoticesFileName), fileDate);
  rink_.adoptNotices(std::move(file));
  if (rink_.noticesFileDate && *rink_.noticesFileDate != fileDate) {
    reportMismatch("date mismatch for notices.b1 - " + rink_.refreshName() + "\n    modified  " +
                   dateText(fileDate) + "\n    expected  " + dateText(rink_.noticesFileDate));
  }
}

void RinkRefresh::schedulesFileReceived(Venue& venue, ByteView body) {
  services_.console.printLine(receivedLine("schedules", " -- " + venue.displayName() + " ", body));
  const SchedulesFile file = decodeSchedulesFile(body);
  if (!venue.schedulesCache) venue.schedulesCache.emplace();
  store(body, venue.schedulesFileName(), file.fileDate);
  // Weeks that the file no longer lists stay until they leave the range.
  for (const FileRecord& record : file.weeks) venue.promiseWeek(record);
  venue.schedulesFileRead = true;
  rink_.postNotification(kSchedulesChanged);
  if (venue.schedulesFileDate && *venue.schedulesFileDate != file.fileDate) {
    reportMismatch(fmt::format("date mismatch for {} - {} ({})\n    modified  {}  {}\n    expected  {}  {}",
                               venue.schedulesFileName(), rink_.refreshName(), venue.displayName(),
                               dateText(file.fileDate), file.fileDate.seconds,
                               dateText(venue.schedulesFileDate), venue.schedulesFileDate->seconds));
    return;
  }
  updateSchedules(venue);
}

void RinkRefresh::updateSchedules(Venue& venue) {
  if (!venue.schedulesFileRead) venue.readSchedulesFile();
  if (venue.schedulesCache) {
    std::erase_if(*venue.schedulesCache, [&](const auto& schedule) { return !inRange(schedule->weekOf); });
    for (const auto& schedule : *venue.schedulesCache) updateWeek(*schedule);
  }
  removeOldWeeks();
}

void RinkRefresh::updateWeek(WeeklySchedule& schedule) {
  switch (schedule.downloadStatus().kind) {
    case DownloadStatus::Kind::requested:
    case DownloadStatus::Kind::invalidData:
      return;
    case DownloadStatus::Kind::failed:
      requestWeekFile(schedule);
      return;
    case DownloadStatus::Kind::idle:
      break;
  }
  const PackedDate thisWeek = startOfWeek(rink_.dateNow());
  const bool soon = schedule.weekOf == thisWeek || schedule.weekOf == addDays(thisWeek, kDaysPerWeek);
  const std::optional<Instant> stored = rink_.storedFileDate(schedule.fileName());
  // Of the weeks further off only those that someone has looked at are kept current.
  if ((soon || stored) && stored != schedule.fileDate) requestWeekFile(schedule);
}

void RinkRefresh::removeOldWeeks() {
  const auto entries = listVisible(services_.files, rink_.rinkSupportFolderURL());
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    if (entry.kind == FileKind::folder) continue;
    const std::string base = withoutExtension(entry.name);
    const bool twoParts = std::count(base.begin(), base.end(), '.') == 1;
    // A name with a second extension is a leftover of an older naming.
    const std::optional<WeekName> week = parseWeekName(withoutExtension(base));
    const bool outdated = week ? !inRange(week->weekOf) || extensionOf(entry.name) != "b1"
                               : twoParts && base.starts_with("venue");
    if (outdated) removeStoredFile(services_, join(rink_.rinkSupportFolderURL(), entry.name));
  }
}

void RinkRefresh::weekFileReceived(WeeklySchedule& schedule, ByteView body) {
  const std::string of = " (" + schedule.venue().displayName() + ") " + schedule.fileName() + " ";
  services_.console.printLine(receivedLine("weekly schedule", of, body));
  const WeekFile file = decodeWeekFile(body);
  store(body, schedule.fileName(), file.fileDate);
  schedule.adopt(file);
  schedule.setDownloadStatus(DownloadStatus::idle());
  schedule.postChanged();
  if (schedule.fileDate != file.fileDate) {
    // The text carries this very word where other messages have the file's name; people who read logs look
    // for it.
    reportMismatch("date mismatch for fileName - " + rink_.refreshName() + "\n    modified  " +
                   dateText(file.fileDate) + "\n    expected  " + dateText(schedule.fileDate));
  }
}

}  // namespace tarvel
