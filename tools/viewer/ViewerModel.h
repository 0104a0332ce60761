#pragma once
#include <memory>

#include "auxwindows/WindowContext.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixThreads.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtRunLoop.h"
#include "refresh/MasterRefresh.h"
#include "viewer/ViewerOptions.h"

namespace tarvel::viewer {

/// The machine's clock, stopped at a moment. Timers go on.
class StandingClock : public PosixClock {
 public:
  Instant now() const override { return moment_; }
  TimeZone machineZone() const override { return zone_; }
  /// Stops at that day's minute in the zone; a minute that the zone leaves out gives one close to it.
  void stopAt(PackedDate date, int minute, const TimeZone& zone);

 private:
  Instant moment_;
  TimeZone zone_ = TimeZone::utc();
};

/// A folder for the time of the run; gone with its holder.
class TemporaryStore {
 public:
  TemporaryStore();
  ~TemporaryStore();
  TemporaryStore(const TemporaryStore&) = delete;
  TemporaryStore& operator=(const TemporaryStore&) = delete;
  /// Empty if none could be made.
  const Path& path() const { return path_; }

 private:
  Path path_;
};

/// The application's model and refresh engine over a folder of published files. The engine fetches from the
/// folder as if it were the servers, into a store of its own that goes with this. One in the process, made
/// after the application object; main thread.
class ViewerModel {
 public:
  explicit ViewerModel(const ViewerOptions& options);
  ~ViewerModel();

  /// Reads the catalogue, stops the clock at the options' moment, and takes the rink into use with all that
  /// it needs. The error says what the folder or the rink lacks.
  Result<std::shared_ptr<RinkData>> openRink();
  /// Runs the event loop until everything that was asked for has come and nothing is left to be done.
  void settle();
  WindowContext& context() { return *context_; }

 private:
  struct Surroundings;
  Result<std::int64_t> chosenRinkID() const;
  Status checkVenues(const RinkData& rink) const;

  const ViewerOptions& options_;
  TemporaryStore store_;
  PosixFileSystem files_;
  StandingClock clock_;
  PosixThreads threads_;
  QtRunLoop mainLoop_;
  FolderHttpClient http_;
  QtImageDecoder images_;
  PretendTime pretendTime_{clock_};
  NotificationCenter notifications_{mainLoop_};
  ObserverCensus census_;
  std::unique_ptr<Surroundings> surroundings_;  ///< those that the viewer has no use for
  Services services_;
  std::shared_ptr<MessageLog> errorLog_;
  ClockTimer clockTimer_{services_};
  DataModel dataModel_;
  MasterRefresh masterRefresh_{services_, dataModel_};
  std::unique_ptr<WindowContext> context_;
};

}  // namespace tarvel::viewer
