#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/DefsFile.h"
#include "model/LogoStore.h"
#include "model/RinkData.h"

namespace tarvel {

/// What belongs to all rinks: the server's address, the session names and colours, the catalogue, the rinks
/// in use, and how the refreshes of the catalogue stand. One in the process, main thread.
class DataModel : public RefreshableProtocol, Counted<DataModel> {
 public:
  using Counted<DataModel>::liveCount;

  /// `supportFolder` is the application's folder; `defaultServerURL` has no trailing slash. The refresh
  /// engine puts itself in by `setRefresher` before `start`.
  DataModel(const Services& services, MessageLog& errorLog, ClockTimer& clockTimer, Path supportFolder,
            std::string defaultServerURL);
  ~DataModel() override;
  void setRefresher(MasterRefresher& refresher);

  const std::string defaultServerURL;
  std::string tarvelServerURL;
  std::vector<std::shared_ptr<RinkInfo>> rinkList;     ///< all known rinks, ascending by rinkID
  std::vector<std::shared_ptr<RinkData>> recentRinks;  ///< rinks in use, ascending by rinkID
  std::string applicationWebsiteURL;
  std::optional<Instant> defsFileDate;   ///< what root.b1 promised for defs.b1
  std::optional<Instant> rinksFileDate;  ///< what root.b1 promised for rinks.b1
  RefreshState refreshState;
  PackedDate updateReminderDueDate = kNoDate;
  bool applicationUpdateRequired =
      false;                         ///< the published data needs a newer application; nothing is fetched
  bool isManualRefresh = false;      ///< the running refresh was asked for by the user
  bool isCheckForAppUpdate = false;  ///< the running refresh is an explicit check for a new release
  bool appIsLaunching = false;       ///< true during `start`

  /// Called when something that the state file keeps has changed; may be empty.
  std::function<void()> stateChanged;
  void noteStateChanged() const;

  /// Launch: reads the local files, takes over the state of the last run (null for a first start), and arms
  /// the timers.
  void start(const PropertyList::Dictionary* state);
  /// Quit: stops the timers, drops rinks not viewed for 28 days, and tidies the files.
  void prepareToQuit();
  /// Drops the decoded photos that nothing has shown for half an hour. A timer calls it; so may the user.
  void freeMemory();
  /// Adds the keys of this object to the state being saved.
  void addToState(PropertyList::Dictionary& state) const;
  /// Refreshes from another server; the present address does nothing. No trailing slash.
  void setServerURL(const std::string& text);

  /// Published names and colours, or the built-in ones until those are known; the empty text and a light grey
  /// beyond the end of the list.
  std::string sessionName(std::int64_t kind);
  Color sessionColor(std::int64_t kind);
  /// Takes over published names and colours and announces what differs.
  void adoptDefs(const DefsFile& file);

  /// Null for an unknown id.
  std::shared_ptr<RinkInfo> rinkInfo(std::int64_t rinkID) const;
  /// The rink in use of that id, taken into use if it isn't yet.
  std::shared_ptr<RinkData> rinkData(std::int64_t rinkID);
  /// Decodes a downloaded catalogue against the present one, for `mergeRinkList`. Throws `DecodeError`; a
  /// negative count stops the program.
  RinkListUpdate rinkListUpdate(ByteView file) const;
  /// Takes over a catalogue, announces what changed, and drops rinks that have gone. A row that the update
  /// leaves out has to be at hand.
  void mergeRinkList(RinkListUpdate update);
  /// Removes folders of rinks not in use, and the old form of the catalogue.
  void tidyApplicationFolder();

  const Path& supportFolder() const { return context_.supportFolder; }
  MessageLog& messageLog() const { return context_.errorLog; }
  LogoStore& logos() { return logos_; }
  MasterRefresher& refresher() const { return *refresher_; }
  void postNotification(NotificationName name, UserInfo userInfo = {});

  std::string refreshName() const override { return "Rink List and Related Information"; }
  std::optional<Instant> lastRefreshTimeStamp() const override { return refreshState.lastRefreshTimeStamp; }
  bool refreshInProgress() const override { return refreshState.refreshInProgress; }
  double secondsUntilRefresh() const override;
  DownloadErrorKind errorKind() const override { return refreshState.errorKind; }
  std::string errorLog() const override { return refreshState.errorLog; }
  void refreshNow() override;

 private:
  struct Context {
    Services services;
    MessageLog& errorLog;
    ClockTimer& clockTimer;
    Path supportFolder;
  };
  RinkContext rinkContext() const;
  void readDefs();
  void readRinkList();
  void readOldRinkList();
  void takeRinkList(RinkListFile file);
  void takeState(const PropertyList::Dictionary& state);
  void takeRecentRinks(const PropertyList::Dictionary& state);
  void fillBuiltInSessions();
  bool adoptRow(RinkInfo& info, RinkRecord& row);
  void dropRinksThatHaveGone();
  void dropStaleRinks();
  void removeOldStateFile();

  Context context_;
  LogoStore logos_;
  MasterRefresher* refresher_ = nullptr;
  std::unique_ptr<Timer> freeMemoryTimer_;
  std::vector<std::string> sessionNames_;
  std::vector<Color> sessionColors_;
};

}  // namespace tarvel
