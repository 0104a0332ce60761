#include "model/RinkData.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "model/FileNames.h"
#include "model/MainFile.h"
#include "model/StoredFile.h"

namespace tarvel {

namespace {
constexpr double kSecondsPerMinute = 60.0;
constexpr int kMinutesPerHour = 60;
constexpr std::int64_t kDaysPerWeek = 7;
}  // namespace

RinkData::RinkData(const RinkContext& context, std::int64_t id)
    : rinkID(id), context_(context), folder_(join(context.supportFolder, rinkFolderName(id))) {
  refresher_ = context_.masterRefresher.makeRinkRefresher(*this);
}

RinkData::~RinkData() {
  if (!retired_) context_.clockTimer.removeTimeDelegate(*this);
}

void RinkData::retire() {
  retired_ = true;
  context_.clockTimer.removeTimeDelegate(*this);
  refresher_->invalidateTimer();
}

std::shared_ptr<RinkData> RinkData::create(const RinkContext& context, std::int64_t rinkID,
                                           const std::shared_ptr<RinkInfo>& rinkInfo) {
  std::shared_ptr<RinkData> rink(new RinkData(context, rinkID));
  rink->firstWeek = rink->lastWeek = startOfWeek(todayDate(context.services.pretendTime));
  rink->rinkInfo_ = rinkInfo;
  rink->setTimeZone();
  context.clockTimer.addTimeDelegate(*rink);
  return rink;
}

std::shared_ptr<RinkData> RinkData::fromState(const RinkContext& context,
                                              const PropertyList::Dictionary& state) {
  std::shared_ptr<RinkData> rink(new RinkData(context, integerAt(state, "rinkID").value_or(0)));
  rink->readState(state);
  rink->clampWeekRange(startOfWeek(todayDate(context.services.pretendTime)));
  context.clockTimer.addTimeDelegate(*rink);
  return rink;
}

void RinkData::readState(const PropertyList::Dictionary& state) {
  const auto promise = [&](const char* key, std::string_view fileName) {
    return restoredPromise(context_.services.files, dateAt(state, key), join(folder_, fileName));
  };
  firstWeek = packedDateAt(state, "firstWeek");
  lastWeek = packedDateAt(state, "lastWeek");
  dismissedNotices = integersAt(state, "dismissedNotices").value_or(std::vector<std::int64_t>{});
  refreshState.readFrom(state);
  mainFileDate = promise("mainFileDate", kMainFileName);
  noticesFileDate = promise("noticesFileDate", kNoticesFileName);
  photosFileDate = promise("photosFileDate", kPhotoCollectionFileName);
  lastViewed = dateAt(state, "lastViewed");
  chimeVenueID = integerAt(state, "chimeVenueID").value_or(0);
  weeklyVenueID = integerAt(state, "weeklyVenueID").value_or(0);
  dailyVenueIDs = integersAt(state, "dailyVenueIDs").value_or(std::vector<std::int64_t>{});
}

PropertyList::Dictionary RinkData::dictionary() const {
  const auto list = [](const std::vector<std::int64_t>& ids) {
    return PropertyList::Array(ids.begin(), ids.end());
  };
  PropertyList::Dictionary state;
  state["rinkID"] = rinkID;
  state["firstWeek"] = firstWeek;
  state["lastWeek"] = lastWeek;
  state["dismissedNotices"] = list(dismissedNotices);
  refreshState.addTo(state);
  if (mainFileDate) state["mainFileDate"] = *mainFileDate;
  if (noticesFileDate) state["noticesFileDate"] = *noticesFileDate;
  if (photosFileDate) state["photosFileDate"] = *photosFileDate;
  if (lastViewed) state["lastViewed"] = *lastViewed;
  state["chimeVenueID"] = chimeVenueID;
  state["weeklyVenueID"] = weeklyVenueID;
  state["dailyVenueIDs"] = list(dailyVenueIDs);
  return state;
}

void RinkData::setRinkInfo(const std::shared_ptr<RinkInfo>& rinkInfo) {
  if (rinkInfo_.lock() == rinkInfo) return;
  context_.services.console.printLine("rinkInfo changed");
  rinkInfo_ = rinkInfo;
}

void RinkData::setTimeZone() {
  const std::shared_ptr<RinkInfo> info = rinkInfo();
  const std::optional<TimeZone> own = info ? TimeZone::named(info->timeZone) : std::nullopt;
  followsMachine_ = !own;
  if (!adoptTimeZone(own ? *own : context_.services.clock.machineZone())) return;
  updateTimeWithNow(context_.services.pretendTime.now());
  postNotification(kTimeZoneChanged);
}

bool RinkData::adoptTimeZone(const TimeZone& zone) {
  if (timeZone_ == zone) return false;
  context_.services.console.printLine(
      fmt::format("RinkData for rinkID {}: setTimeZone to {}", rinkID, zone.identifier()));
  timeZone_ = zone;
  return true;
}

void RinkData::updateTimeWithNow(Instant now) {
  // The clock ticks every second; the rest runs once a minute. A zone that changes within a minute already
  // seen shows from the next minute on.
  const double minute = std::floor(now.seconds / kSecondsPerMinute);
  if (minute == prevMinute_) return;
  prevMinute_ = minute;
  const bool zoneChanged = followsMachine_ && adoptTimeZone(context_.services.clock.machineZone());
  const TimeZone zone = timeZone_ ? *timeZone_ : context_.services.clock.machineZone();
  const LocalTime local = zone.local(now);
  const PackedDate date = packedDate(local);
  const std::int64_t time = local.hour * kMinutesPerHour + local.minute;
  // The date goes first: an observer of both sees the new day before the new time.
  if (date != dateNow_) {
    dateNow_ = date;
    postNotification(kCurrentDateChanged);
  }
  if (time != timeNow_) {
    timeNow_ = time;
    postNotification(kCurrentTimeOfDayChanged);
  }
  if (zoneChanged) postNotification(kTimeZoneChanged);
}

void RinkData::setPhotosFolder(const std::string& folder) {
  if (folder == photosFolder_) return;
  photosFolder_ = folder;
  if (photosFileRead) postNotification(kPhotoCollectionChanged);
}

void RinkData::readMainFile() {
  if (mainFileRead) return;
  mainFileRead = true;  // also when the read fails: it is tried once, and then the file comes from the server
  const std::string request = "/" + std::string(kMainFileName);
  const std::optional<Instant> stored = storedFileDate(std::string(kMainFileName));
  if (!stored) {
    refresher_->requestFile(request);
    return;
  }
  // A version other than the promised one is shown until the new one arrives.
  if (stored != mainFileDate) refresher_->requestFile(request);
  const Path path = join(folder_, kMainFileName);
  const Result<Bytes> content = context_.services.files.read(path);
  if (!content) {
    refresher_->requestFile(request);
    return;
  }
  try {
    adoptStoredMainFile(decodeMainFile(*content));
  } catch (const DecodeError& error) {
    dropDamagedFile(context_.services, context_.errorLog, path, error);
    refresher_->requestFile(request);
  }
}

void RinkData::adoptStoredMainFile(const MainFile& file) {
  offerWeeks(file.firstWeek, file.lastWeek);
  venues.clear();
  mergeVenues(file.venues);
  for (const FileRecord& record : file.files) adoptPromise(record);
  setPhotosFolder(file.photosFolder);
  adoptCoverPhoto(file);
}

std::shared_ptr<Venue> RinkData::adoptPromise(const FileRecord& record) {
  if (record.name == kNoticesFileName) noticesFileDate = record.date;
  if (record.name == kPhotoCollectionFileName) photosFileDate = record.date;
  const std::optional<std::int64_t> venueID = parseSchedulesFileName(record.name);
  std::shared_ptr<Venue> promised = venueID ? venue(*venueID) : nullptr;
  if (promised) promised->schedulesFileDate = record.date;
  return promised;
}

void RinkData::clampWeekRange(PackedDate thisWeek) {
  const PackedDate earliest = subtractDays(thisWeek, kDaysPerWeek);
  firstWeek = std::max(firstWeek, earliest);
  if (lastWeek < firstWeek) lastWeek = thisWeek;
}

bool RinkData::offerWeeks(PackedDate first, PackedDate last) {
  const PackedDate oldFirst = firstWeek;
  const PackedDate oldLast = lastWeek;
  hasHeader_ = true;
  publishedFirstWeek_ = firstWeek = first;
  publishedLastWeek_ = lastWeek = last;
  clampWeekRange(startOfWeek(dateNow_));
  if (firstWeek < oldFirst || lastWeek > oldLast) {
    // Weeks outside the range have left the venues' lists; those that are in it now are read anew.
    for (const auto& venue : venues) venue->schedulesFileRead = false;
  }
  return firstWeek != oldFirst || lastWeek != oldLast;
}

bool RinkData::regainWeeks() {
  const PackedDate earliest = subtractDays(startOfWeek(dateNow_), kDaysPerWeek);
  const bool complete = firstWeek <= std::max(publishedFirstWeek_, earliest);
  return hasHeader_ && !complete && offerWeeks(publishedFirstWeek_, publishedLastWeek_);
}

bool RinkData::mergeVenues(const std::vector<VenueRecord>& records) {
  std::vector<std::shared_ptr<Venue>> merged;
  merged.reserve(records.size());
  bool changed = false;
  auto old = venues.begin();
  for (const VenueRecord& record : records) {
    for (; old != venues.end() && (*old)->venueID < record.venueID; ++old) changed = true;
    if (old != venues.end() && (*old)->venueID == record.venueID) {
      changed = (*old)->update(record) || changed;
      merged.push_back(*old++);
    } else {
      merged.push_back(std::make_shared<Venue>(*this, record));
      changed = true;
    }
  }
  changed = changed || old != venues.end();
  venues = std::move(merged);
  return changed;
}

std::shared_ptr<Venue> RinkData::venue(std::int64_t venueID) const {
  const auto found = std::find_if(venues.begin(), venues.end(),
                                  [&](const std::shared_ptr<Venue>& v) { return v->venueID == venueID; });
  return found == venues.end() ? nullptr : *found;
}

std::optional<Instant> RinkData::storedFileDate(const std::string& name) const {
  return storedDate(context_.services.files, join(folder_, name));
}

void RinkData::tidyFiles() {
  const auto entries = listVisible(context_.services.files, folder_);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    const std::string extension = extensionOf(entry.name);
    const bool loose = extension == "jpg" || extension == "png" || extension == "pdf";
    if (entry.kind == FileKind::file && loose) removeStoredFile(context_.services, join(folder_, entry.name));
  }
}

void RinkData::postNotification(NotificationName name, UserInfo userInfo) {
  context_.services.notifications.postNotification(name, shared_from_this(), std::move(userInfo));
}

std::string RinkData::refreshName() const {
  const std::shared_ptr<RinkInfo> info = rinkInfo();
  return info ? info->name : "unknown rink";
}

double RinkData::secondsUntilRefresh() const {
  return refresher_->secondsUntilRefresh();
}
void RinkData::refreshNow() {
  refresher_->refreshNow();
}

}  // namespace tarvel
