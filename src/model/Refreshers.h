#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace tarvel {

class Photo;
class RinkData;
class RinkInfo;
class Venue;
class WeeklySchedule;
enum class LogoKind;

/// What the model asks of the refresh engine, which alone knows the network. Main thread. A request returns
/// at once; what it brings is announced by notifications. A URL that is in flight already isn't asked for
/// again.
class Refresher {
 public:
  virtual ~Refresher() = default;
  /// Starts a refresh; does nothing while one runs.
  virtual void performRefresh() = 0;
  /// The user's refresh: drops the waiting timer and starts.
  virtual void refreshNow() = 0;
  /// Arms the timer of the next refresh by how the last one ended.
  virtual void scheduleNextRefresh() = 0;
  virtual void invalidateTimer() = 0;
  /// Seconds to the timer's firing; -1.0 without one.
  virtual double secondsUntilRefresh() const = 0;
};

class RinkRefresher : public Refresher {
 public:
  /// For a rink that comes on screen: refreshes if the last refresh failed, never was, or is 4 hours old.
  virtual void refreshIfDue() = 0;
  /// Requests one of the rink's own files by its path under the rink's data, such as "/main.b1".
  virtual void requestFile(const std::string& path) = 0;
  virtual void requestSchedulesFile(Venue& venue) = 0;
  virtual void requestWeekFile(WeeklySchedule& schedule) = 0;
  /// Requests the file of one of the photo's versions. The photo has to be held by shared pointers.
  virtual void requestPhotoFile(Photo& photo, std::int64_t version) = 0;
};

class MasterRefresher : public Refresher {
 public:
  /// Refreshes now, telling the user about the application's own releases whatever the answer.
  virtual void checkForUpdate() = 0;
  virtual void requestDefsFile() = 0;
  virtual void requestRinksFile() = 0;
  virtual void requestLogo(RinkInfo& rinkInfo, LogoKind kind) = 0;
  /// The refresher of one rink, which must not outlive the rink.
  virtual std::unique_ptr<RinkRefresher> makeRinkRefresher(RinkData& rinkData) = 0;
};

}  // namespace tarvel
