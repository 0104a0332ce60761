#pragma once
#include <memory>

#include "app/StateFile.h"
#include "foundation/AutoSaveController.h"
#include "foundation/Services.h"
#include "refresh/MasterRefresh.h"
#include "refresh/NetworkReturn.h"

namespace tarvel::sim {

/// One run of the program without its windows: the engine, its log, its saving, put together and taken apart
/// in the order in which the application does it. Destroying it without `quit` is a kill.
class SimProgram : public AutoSaveDelegate, public MessageLogDelegate {
 public:
  explicit SimProgram(const Services& services);
  ~SimProgram() override;

  void start();
  void quit();

  void autoSave() override;
  void messageLogChanged() override;

  /// Timers that the program itself holds, beside those of the refreshes.
  std::size_t ownTimers() const;

 private:
  void saveState();
  void saveLog();
  void markChanged();
  void decideUpdate(const RootFile& root);

  Services services_;
  StateFile stateFile_;
  bool changed_ = false;
  bool freesMemory_ = false;

 public:
  std::shared_ptr<MessageLog> log;
  ClockTimer clock;
  DataModel model;
  MasterRefresh master;
  NetworkReturn networkReturn;

 private:
  std::unique_ptr<AutoSaveController> autoSave_;
};

}  // namespace tarvel::sim
