#pragma once
#include <memory>
#include <string>
#include <vector>

#include "app/AppInfo.h"
#include "app/MorvAppController.h"
#include "app/StateFile.h"
#include "app/WindowKinds.h"
#include "foundation/AutoSaveController.h"
#include "foundation/ClockTimer.h"
#include "foundation/MessageLog.h"
#include "refresh/MasterRefresh.h"

namespace tarvel {

/// What the controller is made with; what is referred to outlives it.
struct AppSetup {
  Services services;
  Workspace& workspace;
  ObserverCensus& observerCensus;
  SoundPlayer& sounds;
  Path supportFolder;
  std::string defaultServerURL;  ///< without a trailing slash
  AppInfo info = kAppInfo;
  WindowKinds windowKinds = applicationWindowKinds();
};

/// The controller that the application really has: it knows the model, the windows of this application and
/// the state file, and owns all of them. One in the process, main thread.
class AppController : public MorvAppController, public AutoSaveDelegate, public MessageLogDelegate {
 public:
  explicit AppController(AppSetup setup);
  ~AppController() override;

  bool showingDebugMenu = false;
  bool firstActivation = true;
  bool isChanged = false;  ///< the state file isn't up to date
  std::vector<PropertyList::Dictionary> windowsToReopen;
  PackedVersion skipBetaCycle = 0;

  void applicationWillFinishLaunching() override;
  void applicationDidFinishLaunching() override;
  /// The first time it reopens the windows of the last run. A window is shown in any case.
  void applicationDidBecomeActive() override;
  /// Saves, and cleans the store up. The windows stay as they are: their state is part of what is saved. A
  /// second call does nothing.
  void applicationWillTerminate() override;
  void showDefaultWindow() override { mainWindow(); }

  /// Brings the main window to the front, and opens one if there is none.
  void mainWindow();
  /// Writes the state file; a failure goes to the error log.
  void saveAppState();

  void markChanged() override;
  void autoSave() override;
  void messageLogChanged() override;

  /// Null before the launch.
  DataModel* dataModel() { return dataModel_.get(); }

 protected:
  bool isDefaultWindow(const WindowController& controller) const override;

 private:
  void takeState(const PropertyList::Dictionary& state);
  void startDataModel(const PropertyList::Dictionary* state);
  WindowContext windowContext();
  void reopenWindows();
  void reopenWindow(const PropertyList::Dictionary& settings);
  PropertyList::Array openWindows() const;
  void saveErrorLog();

  AppSetup setup_;
  StateFile stateFile_;
  // In the order in which they need each other.
  std::shared_ptr<MessageLog> errorLog_;
  std::unique_ptr<ClockTimer> clockTimer_;
  std::unique_ptr<DataModel> dataModel_;
  std::unique_ptr<MasterRefresh> masterRefresh_;
  std::unique_ptr<AutoSaveController> autoSaveController_;
};

}  // namespace tarvel
