#include "model/WeeklySchedule.h"

#include "foundation/DecodeError.h"
#include "model/FileNames.h"
#include "model/RinkData.h"

namespace tarvel {

std::string WeeklySchedule::fileName() const {
  return weekFileName(venue_.venueID, weekOf);
}

std::shared_ptr<const ScheduleItems> WeeklySchedule::items() {
  if (cachedItems_ || readCurrentFile()) return cachedItems_;
  if (downloadStatus_.kind == DownloadStatus::Kind::idle)
    venue_.rinkData().refresher().requestWeekFile(*this);
  return nullptr;
}

bool WeeklySchedule::readCurrentFile() {
  RinkData& rink = venue_.rinkData();
  if (rink.storedFileDate(fileName()) != fileDate) return false;
  const Path path = join(rink.rinkSupportFolderURL(), fileName());
  const Result<Bytes> content = rink.services().files.read(path);
  if (!content) return false;
  try {
    adopt(decodeWeekFile(*content));
    return true;
  } catch (const DecodeError& error) {
    // A damaged copy counts as missing. It is told once, when the fresh copy is asked for.
    if (downloadStatus_.kind == DownloadStatus::Kind::idle) {
      rink.messageLog().addMessage("Unable to decode file: " + path + " -- " + error.what());
    }
    return false;
  }
}

void WeeklySchedule::adopt(const WeekFile& file) {
  auto items = std::make_shared<ScheduleItems>();
  items->reserve(file.items.size());
  for (const ScheduleItemRecord& record : file.items) {
    items->push_back(std::make_shared<const ScheduleItem>(record, weak_from_this(), weekOf));
  }
  cachedItems_ = std::move(items);
}

void WeeklySchedule::setDownloadStatus(DownloadStatus status) {
  downloadStatus_ = std::move(status);
  postChanged();
}

void WeeklySchedule::postChanged() {
  venue_.rinkData().postNotification(kWeeklyScheduleChanged,
                                     {{std::string(kVenueIDKey), venue_.venueID},
                                      {std::string(kWeekOfKey), static_cast<std::int64_t>(weekOf)}});
}

}  // namespace tarvel
