#include "model/DataModel.h"

#include <algorithm>

#include "foundation/TextFormats.h"
#include "model/FileNames.h"
#include "model/StoredFile.h"
#include "platform/FatalError.h"

namespace tarvel {

namespace {

constexpr Color kColorOfUnknownKind = white(0.8);
constexpr double kFreeMemoryInterval = 600.0;  // seconds
constexpr std::string_view kLogosFolder = "logos";

bool isDictionary(const PropertyList& value) {
  return value.dictionary() != nullptr;
}

const auto kRinkBefore = [](const auto& rink, std::int64_t rinkID) { return rink->rinkID < rinkID; };

}  // namespace

DataModel::DataModel(const Services& services, MessageLog& errorLog, ClockTimer& clockTimer,
                     Path supportFolder, std::string defaultURL)
    : defaultServerURL(std::move(defaultURL)),
      tarvelServerURL(defaultServerURL),
      context_{services, errorLog, clockTimer, std::move(supportFolder)},
      logos_(services, errorLog, join(context_.supportFolder, kLogosFolder)) {}

DataModel::~DataModel() {
  for (const auto& rink : recentRinks) rink->retire();
}

void DataModel::setRefresher(MasterRefresher& refresher) {
  refresher_ = &refresher;
  logos_.setRefresher(refresher);
}

RinkContext DataModel::rinkContext() const {
  if (!refresher_) fatalError("the data model has no refresher");
  return {context_.services, context_.errorLog, context_.clockTimer, *refresher_, context_.supportFolder};
}

void DataModel::noteStateChanged() const {
  if (stateChanged) stateChanged();
}

void DataModel::start(const PropertyList::Dictionary* state) {
  appIsLaunching = true;
  // A local file that is missing is requested right here, before the state's own server address is known:
  // that one request goes to the default address.
  readDefs();
  readRinkList();
  if (state) takeState(*state);
  refresher_->scheduleNextRefresh();
  freeMemoryTimer_ =
      context_.services.mainLoop.every(kFreeMemoryInterval, kFreeMemoryInterval, [this] { freeMemory(); });
  appIsLaunching = false;
}

void DataModel::freeMemory() {
  const Instant now = context_.services.clock.now();
  for (const auto& rink : recentRinks) rink->releaseImages(now);
}

void DataModel::readDefs() {
  const Path path = join(context_.supportFolder, kDefsFileName);
  if (const Result<Bytes> content = context_.services.files.read(path)) {
    try {
      DefsFile file = decodeDefsFile(*content);
      sessionNames_ = std::move(file.names);
      sessionColors_ = std::move(file.colors);
      return;
    } catch (const DecodeError& error) {
      dropDamagedFile(context_.services, context_.errorLog, path, error);
    }
  }
  refresher_->requestDefsFile();
}

void DataModel::readRinkList() {
  FileSystem& files = context_.services.files;
  const Path path = join(context_.supportFolder, kRinksFileName);
  if (const Result<Bytes> content = files.read(path)) {
    try {
      takeRinkList(decodeRinkList(*content));
      return;
    } catch (const DecodeError& error) {
      dropDamagedFile(context_.services, context_.errorLog, path, error);
    }
  } else if (!files.info(path)) {
    readOldRinkList();
  }
  refresher_->requestRinksFile();
}

void DataModel::readOldRinkList() {
  const Result<Bytes> content = context_.services.files.read(join(context_.supportFolder, "rinks2.json"));
  std::optional<RinkListFile> list = content ? decodeRinkListJson(*content) : std::nullopt;
  if (!list) return;
  context_.services.console.printLine("read file: rinks2.json " +
                                      groupedNumber(static_cast<std::int64_t>(content->size())) + " bytes");
  takeRinkList(std::move(*list));
}

void DataModel::takeRinkList(RinkListFile file) {
  rinkList.clear();
  rinkList.reserve(file.rinks.size());
  for (RinkRecord& row : file.rinks) rinkList.push_back(std::make_shared<RinkInfo>(std::move(row), logos_));
}

void DataModel::takeState(const PropertyList::Dictionary& state) {
  const auto promise = [&](const char* key, std::string_view fileName) {
    return restoredPromise(context_.services.files, dateAt(state, key),
                           join(context_.supportFolder, fileName));
  };
  tarvelServerURL = textAt(state, "tarvelServerURL").value_or(tarvelServerURL);
  takeRecentRinks(state);
  refreshState.readFrom(state);
  updateReminderDueDate = packedDateAt(state, "updateReminderDueDate");
  applicationUpdateRequired = booleanAt(state, "applicationUpdateRequired").value_or(false);
  applicationWebsiteURL = textAt(state, "applicationWebsiteURL").value_or("");
  defsFileDate = promise("defsFileDate", kDefsFileName);
  rinksFileDate = promise("rinksFileDate", kRinksFileName);
}

void DataModel::takeRecentRinks(const PropertyList::Dictionary& state) {
  const PropertyList::Array* list = arrayAt(state, "recentRinks");
  if (!list || !std::all_of(list->begin(), list->end(), isDictionary)) return;
  const RinkContext context = rinkContext();
  for (const PropertyList& rink : *list) {
    recentRinks.push_back(RinkData::fromState(context, *rink.dictionary()));
  }
  std::stable_sort(recentRinks.begin(), recentRinks.end(),
                   [](const auto& a, const auto& b) { return a->rinkID < b->rinkID; });
  for (std::size_t i = recentRinks.size(); i-- > 0;) {
    const std::shared_ptr<RinkData> rink = recentRinks[i];
    const std::shared_ptr<RinkInfo> info = rinkInfo(rink->rinkID);
    if (info) {
      rink->setRinkInfo(info);
      rink->setTimeZone();
      rink->refresher().scheduleNextRefresh();
    } else {
      // The rink has left the catalogue; its folder goes at the next quit.
      recentRinks.erase(recentRinks.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
}

void DataModel::addToState(PropertyList::Dictionary& state) const {
  refreshState.addTo(state);
  state["updateReminderDueDate"] = updateReminderDueDate;
  state["applicationUpdateRequired"] = applicationUpdateRequired;
  state["applicationWebsiteURL"] = applicationWebsiteURL;
  // An address equal to the default isn't kept, so that a later default reaches the user.
  if (tarvelServerURL != defaultServerURL) state["tarvelServerURL"] = tarvelServerURL;
  if (defsFileDate) state["defsFileDate"] = *defsFileDate;
  if (rinksFileDate) state["rinksFileDate"] = *rinksFileDate;
  PropertyList::Array rinks;
  for (const auto& rink : recentRinks) rinks.push_back(rink->dictionary());
  state["recentRinks"] = std::move(rinks);
}

void DataModel::setServerURL(const std::string& text) {
  if (text == tarvelServerURL) return;
  tarvelServerURL = text;
  noteStateChanged();
  // A running refresh ends under the old address, and the next one uses the new.
  if (refreshState.refreshInProgress) return;
  context_.services.console.printLine("Begin refresh");
  refreshNow();
}

void DataModel::fillBuiltInSessions() {
  if (sessionNames_.empty()) {
    for (const SessionStyle& session : kBuiltInSessions) sessionNames_.emplace_back(session.name);
  }
  if (sessionColors_.empty()) {
    for (const SessionStyle& session : kBuiltInSessions) sessionColors_.push_back(session.color);
  }
}

std::string DataModel::sessionName(std::int64_t kind) {
  fillBuiltInSessions();
  const bool known = kind >= 0 && kind < static_cast<std::int64_t>(sessionNames_.size());
  return known ? sessionNames_[static_cast<std::size_t>(kind)] : std::string();
}

Color DataModel::sessionColor(std::int64_t kind) {
  fillBuiltInSessions();
  const bool known = kind >= 0 && kind < static_cast<std::int64_t>(sessionColors_.size());
  return known ? sessionColors_[static_cast<std::size_t>(kind)] : kColorOfUnknownKind;
}

void DataModel::adoptDefs(const DefsFile& file) {
  if (file.names != sessionNames_) {
    sessionNames_ = file.names;
    postNotification(kScheduleNamesChanged);
  }
  if (file.colors != sessionColors_) {
    sessionColors_ = file.colors;
    postNotification(kScheduleColorsChanged);
  }
}

std::shared_ptr<RinkInfo> DataModel::rinkInfo(std::int64_t rinkID) const {
  const auto found = std::lower_bound(rinkList.begin(), rinkList.end(), rinkID, kRinkBefore);
  return found != rinkList.end() && (*found)->rinkID == rinkID ? *found : nullptr;
}

std::shared_ptr<RinkData> DataModel::rinkData(std::int64_t rinkID) {
  const auto place = std::lower_bound(recentRinks.begin(), recentRinks.end(), rinkID, kRinkBefore);
  if (place != recentRinks.end() && (*place)->rinkID == rinkID) return *place;
  const auto added = recentRinks.insert(place, RinkData::create(rinkContext(), rinkID, rinkInfo(rinkID)));
  noteStateChanged();
  return *added;
}

void DataModel::postNotification(NotificationName name, UserInfo userInfo) {
  // The model lives as long as the process, so that observers may compare the plain address.
  context_.services.notifications.postNotification(name, static_cast<const DataModel*>(this),
                                                   std::move(userInfo));
}

double DataModel::secondsUntilRefresh() const {
  return refresher_->secondsUntilRefresh();
}
void DataModel::refreshNow() {
  refresher_->refreshNow();
}

}  // namespace tarvel
