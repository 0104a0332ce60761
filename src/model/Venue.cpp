#include "model/Venue.h"

#include <algorithm>
#include <tuple>

#include "foundation/DecodeError.h"
#include "foundation/TextFormats.h"
#include "model/FileNames.h"
#include "model/RinkData.h"
#include "model/ScheduleFiles.h"

namespace tarvel {

namespace {
const auto kBeginsBefore = [](const std::shared_ptr<WeeklySchedule>& schedule, PackedDate weekOf) {
  return schedule->weekOf < weekOf;
};
}

Venue::Venue(RinkData& rinkData, const VenueRecord& record) : venueID(record.venueID), rinkData_(rinkData) {
  update(record);
}

std::string Venue::displayName() const {
  return name.empty() ? std::string(defaultVenueName(venueKind)) : name;
}

std::string Venue::schedulesFileName() const {
  return tarvel::schedulesFileName(venueID);
}

bool Venue::update(const VenueRecord& record) {
  const auto mine = std::tie(venueKind, name, note, displayOrder);
  const auto theirs = std::tie(record.venueKind, record.name, record.note, record.displayOrder);
  if (mine == theirs) return false;
  venueKind = record.venueKind;
  name = record.name;
  note = record.note;
  displayOrder = record.displayOrder;
  return true;
}

std::shared_ptr<WeeklySchedule> Venue::weeklySchedule(PackedDate weekOf) {
  if (!schedulesFileRead) readSchedulesFile();
  if (!schedulesCache || weekOf < rinkData_.firstWeek || weekOf > rinkData_.lastWeek) return nullptr;
  const auto found = std::lower_bound(schedulesCache->begin(), schedulesCache->end(), weekOf, kBeginsBefore);
  return found != schedulesCache->end() && (*found)->weekOf == weekOf ? *found : nullptr;
}

void Venue::readSchedulesFile() {
  const std::optional<Instant> stored = rinkData_.storedFileDate(schedulesFileName());
  if (stored && stored == schedulesFileDate) {
    const Path path = join(rinkData_.rinkSupportFolderURL(), schedulesFileName());
    const Result<Bytes> content = rinkData_.services().files.read(path);
    if (!content) {
      rinkData_.services().console.printLine("READ FAILED: " + schedulesFileName() + " - " +
                                             content.error().description);
    } else {
      try {
        const SchedulesFile file = decodeSchedulesFile(*content);
        if (!schedulesCache) schedulesCache.emplace();
        for (const FileRecord& week : file.weeks) promiseWeek(week);
        schedulesFileRead = true;
        return;
      } catch (const DecodeError& error) {
        rinkData_.messageLog().addMessage("Unable to decode file: " + path + " -- " + error.what());
      }
    }
  }
  rinkData_.refresher().requestSchedulesFile(*this);
}

void Venue::promiseWeek(const FileRecord& record) {
  const std::optional<WeekName> week = parseWeekName(withoutExtension(record.name));
  if (!week || week->venueID != venueID) return;
  const auto place =
      std::lower_bound(schedulesCache->begin(), schedulesCache->end(), week->weekOf, kBeginsBefore);
  if (place != schedulesCache->end() && (*place)->weekOf == week->weekOf) {
    (*place)->fileDate = record.date;
  } else {
    schedulesCache->insert(place, std::make_shared<WeeklySchedule>(*this, week->weekOf, record.date));
  }
}

bool displaysBefore(const Venue& a, const Venue& b) {
  if (a.displayOrder != b.displayOrder) return a.displayOrder < b.displayOrder;
  if (a.venueKind != b.venueKind) return a.venueKind < b.venueKind;
  return lowercased(a.name) < lowercased(b.name);
}

}  // namespace tarvel
