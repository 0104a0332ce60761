#include <algorithm>

#include "model/FileNames.h"
#include "model/RinkData.h"
#include "model/StoredFile.h"

/// The part of `RinkData` that deals with the rink's notices and with those that the user has dismissed.
namespace tarvel {

void RinkData::readNotices() {
  const auto request = [this] { refresher_->requestFile("/" + std::string(kNoticesFileName)); };
  const std::optional<Instant> stored = storedFileDate(std::string(kNoticesFileName));
  // An old notice may say the opposite of the new one, so that nothing is shown of an old file.
  if (!stored || stored != noticesFileDate) return request();
  const Path path = join(folder_, kNoticesFileName);
  const Result<Bytes> content = context_.services.files.read(path);
  if (!content) return request();
  try {
    adoptNotices(decodeNoticesFile(*content));
  } catch (const DecodeError& error) {
    dropDamagedFile(context_.services, context_.errorLog, path, error);
    request();
  }
}

void RinkData::adoptNotices(NoticesFile file) {
  // Ids of notices that have gone are forgotten, so that the list can't grow without end.
  std::vector<std::int64_t> stillDismissed;
  for (const auto& notice : file.notices) {
    if (isDismissed(notice->noticeID)) stillDismissed.push_back(notice->noticeID);
  }
  noticesCache = std::move(file.notices);
  dismissedNotices = std::move(stillDismissed);
  noticesFileRead = true;
  postNotification(kNoticesChanged);
}

const std::optional<NoticeList>& RinkData::noticeList() {
  if (!noticesFileRead) readNotices();
  return noticesCache;
}

bool RinkData::isDismissed(std::int64_t noticeID) const {
  return std::find(dismissedNotices.begin(), dismissedNotices.end(), noticeID) != dismissedNotices.end();
}

bool RinkData::dismissNotice(std::int64_t noticeID) {
  if (isDismissed(noticeID)) return false;
  dismissedNotices.push_back(noticeID);
  return true;
}

}  // namespace tarvel
