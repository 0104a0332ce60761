#include <algorithm>

#include "model/DataModel.h"
#include "platform/FatalError.h"

/// The catalogue's side of `DataModel`: how a new catalogue is taken over, and what goes with a rink that has
/// left.
namespace tarvel {

namespace {

UserInfo rinkIDInfo(std::int64_t rinkID) {
  return {{std::string(kRinkIDKey), rinkID}};
}

}  // namespace

bool DataModel::adoptRow(RinkInfo& info, RinkRecord& row) {
  if (static_cast<const RinkRecord&>(info) == row) return false;
  const bool logoChanged = info.logoFileDate != row.logoFileDate || info.logoFileSize != row.logoFileSize;
  const bool darkChanged =
      info.darkLogoFileDate != row.darkLogoFileDate || info.darkLogoFileSize != row.darkLogoFileSize;
  static_cast<RinkRecord&>(info) = std::move(row);
  postNotification(kRinkInfoChanged, rinkIDInfo(info.rinkID));
  const auto forget = [&](std::shared_ptr<const Image>& cached) {
    if (!cached) return;
    cached = nullptr;
    context_.services.notifications.postNotification(kRinkLogoChanged, nullptr, rinkIDInfo(info.rinkID));
  };
  if (logoChanged) forget(info.cachedLogoImage);
  if (darkChanged) forget(info.cachedDarkLogoImage);
  return true;
}

RinkListUpdate DataModel::rinkListUpdate(ByteView file) const {
  auto at = rinkList.begin();
  return decodeRinkListUpdate(file, [&](std::int64_t rinkID) -> const RinkRecord* {
    while (at != rinkList.end() && (*at)->rinkID < rinkID) ++at;
    return at != rinkList.end() && (*at)->rinkID == rinkID ? at->get() : nullptr;
  });
}

void DataModel::mergeRinkList(RinkListUpdate update) {
  // Both lists ascend by id, so that one walk over them does it, however many rows come and go.
  std::vector<std::shared_ptr<RinkInfo>> merged;
  merged.reserve(update.rinkIDs.size());
  bool changed = false;
  auto old = rinkList.begin();
  auto row = update.rows.begin();
  for (const std::int64_t rinkID : update.rinkIDs) {
    for (; old != rinkList.end() && (*old)->rinkID < rinkID; ++old) changed = true;
    const bool hasRow = row != update.rows.end() && row->rinkID == rinkID;
    if (old != rinkList.end() && (*old)->rinkID == rinkID) {
      if (hasRow) changed = adoptRow(**old, *row++) || changed;
      merged.push_back(std::move(*old++));
    } else {
      if (!hasRow) fatalError("a row of the catalogue isn't at hand");
      merged.push_back(std::make_shared<RinkInfo>(std::move(*row++), logos_));
      changed = true;
    }
  }
  changed = changed || old != rinkList.end();
  rinkList = std::move(merged);
  if (!changed) return;
  dropRinksThatHaveGone();
  // A rink may have moved to another zone, or be in the catalogue only now.
  for (const auto& rink : recentRinks) {
    rink->setRinkInfo(rinkInfo(rink->rinkID));
    rink->setTimeZone();
  }
  tidyApplicationFolder();
  postNotification(kRinkListChanged);
}

void DataModel::dropRinksThatHaveGone() {
  for (std::size_t i = recentRinks.size(); i-- > 0;) {
    const std::shared_ptr<RinkData> rink = recentRinks[i];
    if (rinkInfo(rink->rinkID)) continue;
    rink->retire();
    recentRinks.erase(recentRinks.begin() + static_cast<std::ptrdiff_t>(i));
    rink->postNotification(kRinkDataRemoved);
    noteStateChanged();
  }
}

}  // namespace tarvel
