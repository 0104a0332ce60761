#pragma once
#include <memory>
#include <string>

#include "model/DataModel.h"
#include "refresh/RefreshCycle.h"

namespace tarvel {

/// Keeps one rink's files current. Each refresh asks for one tiny file and descends a tree of promised dates
/// from there: master.b1 promises main.b1, that one the schedules files, and those the weeks. A stored file
/// is current when its date is the promised one exactly, whichever is newer. Only what differs is fetched,
/// and of what was never fetched only the weeks of now and next; the rest comes when a view first asks. Owned
/// by its `RinkData`.
class RinkRefresh : public RinkRefresher, private RefreshCycle {
 public:
  RinkRefresh(const Services& services, DownloadManager& downloads, DataModel& model, RinkData& rink);

  void performRefresh() override;
  void refreshNow() override;
  void refreshIfDue() override;
  void scheduleNextRefresh() override { armNextRefresh(); }
  void invalidateTimer() override { dropTimer(); }
  double secondsUntilRefresh() const override { return secondsUntilTimer(); }

  void requestFile(const std::string& path) override;
  void requestSchedulesFile(Venue& venue) override;
  void requestWeekFile(WeeklySchedule& schedule) override;
  void requestPhotoFile(Photo& photo, std::int64_t version) override;

 private:
  void armNextRefresh() override;
  void announceStatus() override;
  void noteStateChanged() override { model_.noteStateChanged(); }
  std::shared_ptr<const void> keepAlive() override { return rink_.shared_from_this(); }

  void requestMasterFile();
  bool requestRinkFile(const std::string& path, Handler handler, FailureHandler onFailure = {});
  void masterFileReceived(ByteView body);
  void mainFileReceived(ByteView body);
  void noticesFileReceived(ByteView body);
  void photoCollectionFileReceived(ByteView body);
  void photoFileReceived(Photo& photo, std::int64_t version, ByteView body);
  void schedulesFileReceived(Venue& venue, ByteView body);
  void weekFileReceived(WeeklySchedule& schedule, ByteView body);

  void updateMain();
  void updateVenue(Venue& venue);
  void updateNotices();
  void updatePhotoCollection();
  void updatePhotos();
  void removeUnlistedPhotos(const std::vector<FolderEntry>& entries);
  void updateSchedules(Venue& venue);
  void updateWeek(WeeklySchedule& schedule);
  void removeWeeksOfGoneVenues();
  void removeOldWeeks();
  bool inRange(PackedDate weekOf) const { return weekOf >= rink_.firstWeek && weekOf <= rink_.lastWeek; }
  void store(ByteView body, const std::string& name, Instant date);
  std::string receivedLine(std::string_view what, std::string_view of, ByteView body) const;

  DataModel& model_;
  RinkData& rink_;
};

}  // namespace tarvel
