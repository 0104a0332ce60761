#pragma once
#include <functional>
#include <memory>

#include "model/DataModel.h"
#include "model/Refreshers.h"
#include "refresh/RefreshCycle.h"
#include "refresh/RootFile.h"

namespace tarvel {

/// Keeps the catalogue, the session definitions and the logos current, and makes each rink's refresher. One
/// in the process, beside the data model, into which it puts itself. Main thread.
class MasterRefresh : public MasterRefresher, private RefreshCycle {
 public:
  /// The model outlives the refresher, and asks nothing of it once it is gone.
  MasterRefresh(const Services& services, DataModel& model);

  /// Compares the application with the published releases each time the index arrives, before any file is
  /// asked for, and says whether this version may go on reading the data
  /// (`DataModel::applicationUpdateRequired`). Empty: the model's answer of before stands.
  std::function<void(const RootFile&)> decideUpdate;

  void performRefresh() override;
  void refreshNow() override;
  void scheduleNextRefresh() override { armNextRefresh(); }
  void invalidateTimer() override { dropTimer(); }
  double secondsUntilRefresh() const override { return secondsUntilTimer(); }
  void checkForUpdate() override;
  /// The menu's command: a refresh that sets no flag and leaves the waiting timer alone.
  void masterRefresh();

  void requestDefsFile() override;
  void requestRinksFile() override;
  void requestLogo(RinkInfo& rinkInfo, LogoKind kind) override;
  std::unique_ptr<RinkRefresher> makeRinkRefresher(RinkData& rinkData) override;

 private:
  void armNextRefresh() override;
  void announceStatus() override;
  void noteStateChanged() override { model_.noteStateChanged(); }

  void rootFileReceived(ByteView body);
  void defsFileReceived(ByteView body);
  void rinksFileReceived(ByteView body);
  void takeUpdateDecision(const RootFile& root);
  void checkPromise(std::optional<Instant> promised, Instant received, std::string_view fileName);
  std::string url(std::string_view path) const;

  DataModel& model_;
  DownloadManager downloads_;
  std::string cycleServerURL_;  ///< of the running cycle, which ends at the server with which it began
};

}  // namespace tarvel
