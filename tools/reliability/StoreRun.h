#pragma once
#include <memory>
#include <string>
#include <vector>

#include "app/StateFile.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/StandardConsole.h"
#include "refresh/MasterRefresh.h"
#include "reliability/PhotoHeaders.h"
#include "simulation/ports/SimWorld.h"
#include "viewer/FolderHttpClient.h"

namespace tarvel::reliability {

struct StoreRunOptions {
  Path store;                       ///< the application's folder
  Path site;                        ///< published files, in the place of all servers
  std::vector<std::int64_t> rinks;  ///< what the user looks at
  Instant start;                    ///< wall time of the start
};

/// One run of the application without its windows, from start to quit, in the order that the application
/// keeps: the real engine on the real disk, in virtual time, with a folder as the network. So a run that
/// takes a minute of the user's time takes milliseconds, and does the same each time.
class StoreRun {
 public:
  explicit StoreRun(const StoreRunOptions& options);

  void launch();
  /// Fetches the catalogue and all that the rinks show, saves the state on the way as the auto-save does, and
  /// refreshes everything once more.
  void use();
  void quit();

  /// What went wrong with the refreshes, a line each; empty if all ended well.
  std::vector<std::string> errors() const;

 private:
  void look(std::int64_t rinkID);
  void lookAtWeeks(RinkData& rink);
  void lookAtPictures(RinkData& rink);
  void saveState();
  void saveLog();

  const StoreRunOptions options_;
  PosixFileSystem files_;
  StandardConsole console_;
  SimWorld world_;
  PretendTime pretendTime_{world_.clock()};
  viewer::FolderHttpClient http_;
  PhotoHeaders images_;
  NotificationCenter notifications_{world_.mainLoop()};
  Services services_;
  StateFile stateFile_;
  std::shared_ptr<MessageLog> log_;
  ClockTimer clock_{services_};
  DataModel model_;
  MasterRefresh master_{services_, model_};
};

}  // namespace tarvel::reliability
