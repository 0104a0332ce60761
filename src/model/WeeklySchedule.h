#pragma once
#include <memory>
#include <string>

#include "model/DownloadStatus.h"
#include "model/ScheduleItem.h"

namespace tarvel {

class Venue;

/// One week of one venue. Its items are decoded when they are first asked for. Owned by its venue; main
/// thread.
class WeeklySchedule : public std::enable_shared_from_this<WeeklySchedule>, Counted<WeeklySchedule> {
 public:
  using Counted<WeeklySchedule>::liveCount;

  WeeklySchedule(Venue& venue, PackedDate sunday, Instant promisedDate)
      : weekOf(sunday), fileDate(promisedDate), venue_(venue) {}

  const PackedDate weekOf;  ///< the Sunday on which the week begins
  Instant fileDate;         ///< what the schedules file promises for the week's file

  Venue& venue() const { return venue_; }
  /// venue-7_week-2025-03-02.b1
  std::string fileName() const;
  /// The items in the file's order, null while the week's file isn't at hand in the promised version: it is
  /// then requested, unless a request is under way or has failed, and "weekly schedule changed" follows.
  std::shared_ptr<const ScheduleItems> items();
  /// Takes over decoded items.
  void adopt(const WeekFile& file);

  const DownloadStatus& downloadStatus() const { return downloadStatus_; }
  /// Stores it and posts "weekly schedule changed".
  void setDownloadStatus(DownloadStatus status);
  void postChanged();

 private:
  bool readCurrentFile();

  Venue& venue_;
  std::shared_ptr<const ScheduleItems> cachedItems_;
  DownloadStatus downloadStatus_;
};

}  // namespace tarvel
