#pragma once
#include <memory>
#include <string>
#include <vector>

#include "app/AppCommands.h"
#include "app/AppInfo.h"
#include "app/MorvAppController.h"
#include "app/StateFile.h"
#include "app/WindowKinds.h"
#include "foundation/AutoSaveController.h"
#include "foundation/ClockTimer.h"
#include "foundation/MessageLog.h"
#include "refresh/MasterRefresh.h"
#include "refresh/NetworkReturn.h"
#include "refresh/UpdateDecision.h"

namespace tarvel {

class AlertPanelWindowController;
class CursorHider;

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
  // Either may be null; a kiosk then does without:
  ScreenInhibitor* screenInhibitor = nullptr;
  CursorHider* cursorHider = nullptr;
  PackedVersion systemVersion = tarvel::systemVersion();
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
  void todayWindow() override;
  void clockWindow() override;
  /// Flips whether the next Today window takes a whole screen; those that are open stay as they are.
  void toggleKioskMode();
  // Each of these windows exists once at most:
  void tarvelURLWindow() override;
  void debugWindow();
  /// The log window of the error log.
  void errorLogWindow();
  /// Adds the Debug menu to every window's menu bar, or takes it away.
  void toggleDebugMenu();
  /// Refreshes, and tells the user how the application stands beside its releases, whatever that is.
  void checkForAppUpdate();
  void visitAppWebsite();
  void masterRefresh();
  /// Lets go of the photos that nobody has looked at for a while.
  void freeMemory();
  /// The plain form of an alert, with one button that closes it.
  void showAlert(const std::string& message, const std::string& info);

  /// Writes the state file; a failure goes to the error log.
  void saveAppState();

  void markChanged() override;
  bool kioskMode() const override;
  void setCursorHiding(CursorHiding hiding) override;
  ScreenInhibitor* screenInhibitor() override { return setup_.screenInhibitor; }
  void autoSave() override;
  void messageLogChanged() override;
  /// The machine is on a network again. Nothing before the launch.
  void networkCameBack();

  /// Null before the launch.
  DataModel* dataModel() { return dataModel_.get(); }

 protected:
  bool isDefaultWindow(const WindowController& controller) const override;
  void prepareWindow(WindowController& controller) override;

 private:
  void decideUpdate(const RootFile& root);
  void presentUpdate(const UpdateAlert& alert);
  void openUpdatePage(const UpdateAlert& alert);
  /// A failure goes to the error log.
  void openPage(const std::string& url);
  AlertPanelWindowController& newAlertPanel(const std::string& message, const std::string& info);
  /// Closes the alerts that say the same as this one and still wait for an answer: an application left alone
  /// for weeks doesn't pile them up.
  static void closeOlderOf(const AlertPanelWindowController& panel);
  void takeState(const PropertyList::Dictionary& state);
  void startDataModel(const PropertyList::Dictionary* state);
  WindowContext windowContext();
  /// The frontmost window of that class, or a new one, which still is to be shown.
  WindowController& windowOfClass(const char* className);
  static void showTodayWindow(WindowController& controller);
  void reopenWindows();
  void reopenWindow(const PropertyList::Dictionary& settings);
  PropertyList::Array openWindows() const;
  void saveErrorLog();

  AppSetup setup_;
  AppCommands commands_{*this};
  StateFile stateFile_;
  // In the order in which they need each other.
  std::shared_ptr<MessageLog> errorLog_;
  std::unique_ptr<ClockTimer> clockTimer_;
  std::unique_ptr<DataModel> dataModel_;
  std::unique_ptr<MasterRefresh> masterRefresh_;
  std::unique_ptr<NetworkReturn> networkReturn_;
  std::unique_ptr<AutoSaveController> autoSaveController_;
};

}  // namespace tarvel
