#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/MainFile.h"
#include "model/WeeklySchedule.h"

namespace tarvel {

class RinkData;

/// A sheet of ice or a room of a rink, with its weeks. Owned by its `RinkData`, which outlives it; main
/// thread.
class Venue : public std::enable_shared_from_this<Venue>, Counted<Venue> {
 public:
  using Counted<Venue>::liveCount;

  Venue(RinkData& rinkData, const VenueRecord& record);

  const std::int64_t venueID;
  VenueKind venueKind = VenueKind::other;
  std::string name;
  std::string note;
  std::int64_t displayOrder = 0;
  std::optional<Instant> schedulesFileDate;  ///< what main.b1 promises for the schedules file
  bool schedulesFileRead = false;
  /// Ascending by `weekOf`; none until the schedules file has been read.
  std::optional<std::vector<std::shared_ptr<WeeklySchedule>>> schedulesCache;

  RinkData& rinkData() const { return rinkData_; }
  /// The name, or the kind's where there is none.
  std::string displayName() const;
  /// venue-7_schedules.b1
  std::string schedulesFileName() const;
  /// Takes over a record of the same id; true if anything differs.
  bool update(const VenueRecord& record);
  /// The week that begins on that Sunday; null if the rink doesn't offer it. Reads the schedules file at
  /// first use.
  std::shared_ptr<WeeklySchedule> weeklySchedule(PackedDate weekOf);
  /// Reads the stored schedules file if it is the promised version; requests it otherwise.
  void readSchedulesFile();
  /// Gives the week of that file name its promised date, making the week if it is new. A name of another
  /// form, or of another venue, is passed over. Only with a `schedulesCache`.
  void promiseWeek(const FileRecord& record);

 private:
  RinkData& rinkData_;
};

/// The order in which venues are displayed: by `displayOrder`, then kind, then name regardless of case.
bool displaysBefore(const Venue& a, const Venue& b);

}  // namespace tarvel
