#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "foundation/ClockTimer.h"
#include "foundation/InstanceCounter.h"
#include "foundation/MessageLog.h"
#include "foundation/Services.h"
#include "model/NoticesFile.h"
#include "model/PhotoCollectionFile.h"
#include "model/RefreshState.h"
#include "model/Refreshable.h"
#include "model/Refreshers.h"
#include "model/RinkInfo.h"
#include "model/Venue.h"

namespace tarvel {

/// What every rink in use needs of its surroundings; the members outlive it.
struct RinkContext {
  Services services;
  MessageLog& errorLog;
  ClockTimer& clockTimer;
  MasterRefresher& masterRefresher;
  Path supportFolder;  ///< the application's folder
};

/// One rink that the user has looked at: its folder of downloaded files, its venues, its local date and time,
/// and its own refreshes. Views read all of a rink's content through it. Owned by `DataModel::recentRinks`;
/// windows hold it weakly. Main thread.
class RinkData : public std::enable_shared_from_this<RinkData>,
                 public RefreshableProtocol,
                 public TimeDelegateProtocol,
                 Counted<RinkData> {
 public:
  using Counted<RinkData>::liveCount;

  /// A rink looked at for the first time. `rinkInfo` may be null.
  static std::shared_ptr<RinkData> create(const RinkContext& context, std::int64_t rinkID,
                                          const std::shared_ptr<RinkInfo>& rinkInfo);
  /// A rink of an earlier run, from its state dictionary.
  static std::shared_ptr<RinkData> fromState(const RinkContext& context,
                                             const PropertyList::Dictionary& state);
  ~RinkData() override;
  /// The rink leaves the model, which may end now: it leaves the clock, and its timer is dropped. Whoever
  /// still holds it, such as a notification under way, sees what it last held.
  void retire();

  const std::int64_t rinkID;
  // Kept from run to run:
  PackedDate firstWeek = kNoDate;  ///< first and last week (Sundays) for which schedules are offered
  PackedDate lastWeek = kNoDate;
  std::optional<Instant> mainFileDate;     ///< what master.b1 promised for main.b1
  std::optional<Instant> noticesFileDate;  ///< what main.b1 promised for notices.b1
  std::optional<Instant> photosFileDate;   ///< what main.b1 promised for photoCollection.b1
  RefreshState refreshState;
  std::optional<Instant> lastViewed;
  std::int64_t chimeVenueID = 0;   ///< whose sessions the chime follows; 0 for none
  std::int64_t weeklyVenueID = 0;  ///< chosen for the weekly view
  std::vector<std::int64_t> dailyVenueIDs;
  std::vector<std::int64_t> dismissedNotices;  ///< ids
  // Of this run:
  std::int64_t chosenVenueID = 0;              ///< chosen in the Today window
  std::vector<std::shared_ptr<Venue>> venues;  ///< ascending by venueID
  std::shared_ptr<Photo> coverPhotoCache;
  std::optional<NoticeList> noticesCache;   ///< none until they are read, which an empty list is not
  std::optional<AlbumList> albumListCache;  ///< the same
  std::optional<PhotoList> photoListCache;  ///< the same; ascending by photoID
  bool mainFileRead = false;
  bool noticesFileRead = false;
  bool photosFileRead = false;

  /// The state dictionary that `fromState` reads.
  PropertyList::Dictionary dictionary() const;

  /// Null when the rink has left the catalogue.
  std::shared_ptr<RinkInfo> rinkInfo() const { return rinkInfo_.lock(); }
  void setRinkInfo(const std::shared_ptr<RinkInfo>& rinkInfo);
  /// Takes over the zone that `rinkInfo` names. If it names none, that is the machine's, whose changes are
  /// then followed from minute to minute.
  void setTimeZone();
  const std::optional<TimeZone>& timeZone() const { return timeZone_; }
  /// Today at the rink, and the minutes since its midnight.
  PackedDate dateNow() const { return dateNow_; }
  std::int64_t timeNow() const { return timeNow_; }
  void updateTimeWithNow(Instant now) override;

  const std::string& photosFolder() const { return photosFolder_; }
  void setPhotosFolder(const std::string& folder);

  /// Reads the stored header once, at first need, and requests it if it is missing or not the promised
  /// version. An old version is shown until the new one arrives.
  void readMainFile();
  /// Keeps the weeks from the one before `thisWeek` on.
  void clampWeekRange(PackedDate thisWeek);
  /// Takes over the weeks that the header publishes, less those that are over; true if the range differs.
  bool offerWeeks(PackedDate first, PackedDate last);
  /// True once a header has been taken over, stored or fetched.
  bool hasHeader() const { return hasHeader_; }
  /// Offers again what a clock that was ahead has taken from the range, now that it has been set back; true
  /// if the range differs.
  bool regainWeeks();
  /// Takes over the list of venues, keeping those it has; true if anything changed.
  bool mergeVenues(const std::vector<VenueRecord>& records);
  /// Notes the date that the header promises for one of the rink's files; names of other forms are passed
  /// over. Gives the venue if the file is the schedules file of one.
  std::shared_ptr<Venue> adoptPromise(const FileRecord& record);
  /// Takes over what the header tells of the cover photo.
  void adoptCoverPhoto(const MainFile& file);
  /// The notices, read from the stored file if they weren't yet; none while there is nothing to show. What is
  /// missing or out of date is requested, and "notices changed" follows.
  const std::optional<NoticeList>& noticeList();
  /// Reads the stored notices, or requests them if they are missing, damaged or not the promised version.
  void readNotices();
  /// Takes over a new list, and forgets the dismissal of notices that it lacks.
  void adoptNotices(NoticesFile file);
  bool isDismissed(std::int64_t noticeID) const;
  /// False if it was dismissed already.
  bool dismissNotice(std::int64_t noticeID);
  /// The albums, read from the stored file if they weren't yet; none while there is nothing to show. What is
  /// missing or out of date is requested, and "photo collection changed" follows.
  const std::optional<AlbumList>& albumList();
  /// The same for one photo or album; null for an unknown id.
  std::shared_ptr<Photo> photo(std::int64_t photoID);
  std::shared_ptr<const PhotoAlbum> album(std::int64_t albumID);
  /// Reads the stored collection, or requests it if it is missing, damaged or not the promised version.
  void readPhotos();
  /// Takes over a new collection. Its photos are new objects: whoever holds an old one keeps that.
  void adoptPhotos(PhotoCollectionFile file);
  /// Drops the images of photos that no view shows and whose time is over at `now`.
  void releaseImages(Instant now);

  /// Null for an unknown id.
  std::shared_ptr<Venue> venue(std::int64_t venueID) const;

  const Path& rinkSupportFolderURL() const { return folder_; }
  /// Where the photos' files are stored.
  Path photosFolderPath() const;
  /// The date of one of the rink's stored files, asked afresh.
  std::optional<Instant> storedFileDate(const std::string& name) const;
  /// At quit: removes loose pictures and documents of an older layout from the top of the rink's folder.
  void tidyFiles();

  const Services& services() const { return context_.services; }
  MessageLog& messageLog() const { return context_.errorLog; }
  RinkRefresher& refresher() { return *refresher_; }
  void postNotification(NotificationName name, UserInfo userInfo = {});

  std::string refreshName() const override;
  std::optional<Instant> lastRefreshTimeStamp() const override { return refreshState.lastRefreshTimeStamp; }
  bool refreshInProgress() const override { return refreshState.refreshInProgress; }
  double secondsUntilRefresh() const override;
  DownloadErrorKind errorKind() const override { return refreshState.errorKind; }
  std::string errorLog() const override { return refreshState.errorLog; }
  void refreshNow() override;

 private:
  RinkData(const RinkContext& context, std::int64_t rinkID);
  void readState(const PropertyList::Dictionary& state);
  void adoptStoredMainFile(const MainFile& file);
  /// False if it is the zone already.
  bool adoptTimeZone(const TimeZone& zone);

  RinkContext context_;
  Path folder_;
  std::weak_ptr<RinkInfo> rinkInfo_;
  std::optional<TimeZone> timeZone_;
  bool followsMachine_ = false;  ///< `timeZone_` is the machine's
  PackedDate dateNow_ = kNoDate;
  std::int64_t timeNow_ = 0;
  bool hasHeader_ = false;
  PackedDate publishedFirstWeek_ = kNoDate;
  PackedDate publishedLastWeek_ = kNoDate;
  double prevMinute_ = 0.0;  ///< the last whole minute seen, since the reference date
  std::string photosFolder_;
  std::unique_ptr<RinkRefresher> refresher_;
  bool retired_ = false;
};

}  // namespace tarvel
