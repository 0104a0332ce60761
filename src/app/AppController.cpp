#include "app/AppController.h"

#include <fmt/format.h>

#include <algorithm>

#include "app/CursorHider.h"
#include "app/Globals.h"
#include "app/StoreCleanup.h"
#include "app/TodayOpening.h"
#include "mainwindow/MainWindowController.h"
#include "platform/AtomicFile.h"
#include "platform/FatalError.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel {

namespace {

constexpr std::int64_t kMaxErrorMessages = 500;
constexpr std::uint16_t kErrorLogPermissions = 0700;
constexpr const char* kClassNameKey = "className";

}  // namespace

AppController::AppController(AppSetup setup)
    : MorvAppController(setup.services, setup.supportFolder, classesOf(setup.windowKinds)),
      setup_(std::move(setup)),
      stateFile_(setup_.services.files, setup_.supportFolder) {
  gAppController = this;
  errorLog_ = MessageLog::create(services(), join(supportFolder(), "error-log.b1"), "error-log",
                                 kMaxErrorMessages, kErrorLogPermissions);
  errorLog_->delegate = this;
  gErrorLog = errorLog_.get();
  clockTimer_ = std::make_unique<ClockTimer>(services());
  gClockTimer = clockTimer_.get();
}

AppController::~AppController() {
  // Windows hold on to the model, and the model's work in flight may report to the log.
  deleteAllWindows();
  errorLog_->delegate = nullptr;
  if (dataModel_) dataModel_->stateChanged = nullptr;
  gAppController = nullptr;
  gDataModel = nullptr;
  gErrorLog = nullptr;
  gClockTimer = nullptr;
}

void AppController::applicationWillFinishLaunching() {
  if (!versionsAgree(setup_.info, kAppVersion, services().console)) fatalError("inconsistent versions");
  services().console.printLine(fmt::format("----- Launch Tarvel {} -----", setup_.info.version));
  MorvAppController::applicationWillFinishLaunching();
  if (const Status made = createFoldersSafely(services().files, supportFolder()); !made) {
    errorLog_->addMessage(
        fmt::format("Can not create directory: {} -- {}", supportFolder(), made.error().description));
  }
  services().threads.nameCurrentThread("Main Thread");
  removeLeftoversOfCrash(services().files, supportFolder());
  for (const Path& path : clearStorePlaces(services().files, supportFolder())) {
    errorLog_->addMessage("Removed from the store, as it was in the way: " + path);
  }
  const auto state = stateFile_.read();
  if (state) takeState(*state);
  startDataModel(state ? &*state : nullptr);
  clockTimer_->start();
}

void AppController::takeState(const PropertyList::Dictionary& state) {
  AppState taken = AppState::from(state);
  windowSettings = std::move(taken.windowSettings);
  windowsToReopen = std::move(taken.windowsToReopen);
  gKioskMode = taken.kioskMode;
  skipBetaCycle = taken.skipBetaCycle;
}

void AppController::startDataModel(const PropertyList::Dictionary* state) {
  dataModel_ = std::make_unique<DataModel>(services(), *errorLog_, *clockTimer_, supportFolder(),
                                           setup_.defaultServerURL);
  gDataModel = dataModel_.get();
  dataModel_->stateChanged = [this] { markChanged(); };
  masterRefresh_ = std::make_unique<MasterRefresh>(services(), *dataModel_);
  networkReturn_ = std::make_unique<NetworkReturn>(services(), *dataModel_);
  masterRefresh_->decideUpdate = [this](const RootFile& root) { decideUpdate(root); };
  dataModel_->start(state);
}

void AppController::networkCameBack() {
  if (networkReturn_) networkReturn_->networkCameBack();
}

void AppController::applicationDidFinishLaunching() {
  if (!autoSaveController_) {
    autoSaveController_ = std::make_unique<AutoSaveController>(services().mainLoop, *this, "app controller");
  }
  MorvAppController::applicationDidFinishLaunching();
}

void AppController::applicationDidBecomeActive() {
  if (firstActivation) reopenWindows();
  if (Window::orderedWindows().empty()) mainWindow();
  firstActivation = false;
}

void AppController::applicationWillTerminate() {
  if (terminating) return;
  terminating = true;
  clockTimer_->stopClockTimer();
  clockTimer_->terminate();
  if (dataModel_) dataModel_->prepareToQuit();
  if (autoSaveController_) autoSaveController_->finish();
  autoSaveController_.reset();
  saveAppState();
  saveErrorLog();
  cleanUpStore(services().files, supportFolder(), services().console);
  services().console.printLine("----- Quit Tarvel -----");
}

void AppController::markChanged() {
  isChanged = true;
  if (autoSaveController_) autoSaveController_->changed();
}

void AppController::messageLogChanged() {
  if (autoSaveController_) autoSaveController_->changed();
}

void AppController::autoSave() {
  if (isChanged) {
    saveAppState();
    isChanged = false;
  }
  saveErrorLog();
}

void AppController::saveErrorLog() {
  if (errorLog_->logChanged && errorLog_->save()) errorLog_->logChanged = false;
}

void AppController::saveAppState() {
  services().console.printLine("saveAppState");
  PropertyList::Dictionary state;
  state["openWindows"] = openWindows();
  state["windowSettings"] = windowSettings;
  state["kioskMode"] = gKioskMode;
  state["skipBetaCycle"] = skipBetaCycle;
  if (dataModel_) dataModel_->addToState(state);
  const Status saved = stateFile_.write(std::move(state));
  if (saved) {
    services().console.printLine("File saved: " + stateFile_.path());
  } else {
    errorLog_->addMessage(
        fmt::format("Unable to save file: {} -- {}", stateFile_.path(), saved.error().description));
  }
}

PropertyList::Array AppController::openWindows() const {
  std::vector<Window*> windows = Window::orderedWindows();
  std::reverse(windows.begin(), windows.end());
  PropertyList::Array forms;
  // A quit may come before the windows of the last run have opened again.
  for (const PropertyList::Dictionary& settings : windowsToReopen) forms.emplace_back(settings);
  for (const Window* window : windows) {
    WindowController* const controller = controllerOf(*window);
    const WindowKind* const kind =
        controller ? kindNamed(setup_.windowKinds, controller->className()) : nullptr;
    if (!kind || kind->comesBack == WindowKind::ComesBack::no) continue;
    if (auto* const main = dynamic_cast<MainWindowController*>(controller)) main->storeChosenVenues();
    PropertyList::Dictionary form = savedForm(*controller);
    form[kClassNameKey] = kind->className;
    forms.emplace_back(std::move(form));
  }
  return forms;
}

void AppController::reopenWindows() {
  for (const PropertyList::Dictionary& settings : std::exchange(windowsToReopen, {})) reopenWindow(settings);
}

void AppController::reopenWindow(const PropertyList::Dictionary& settings) {
  const auto className = textAt(settings, kClassNameKey);
  if (!className) fatalError("an open window without its class");
  const WindowKind* const kind = kindNamed(setup_.windowKinds, *className);
  if (!kind || kind->comesBack == WindowKind::ComesBack::no) return;
  const bool isToday = kind->className == kTodayWindowClass;
  const RestoreFrame restoreFrame = isToday && gKioskMode ? RestoreFrame::no : RestoreFrame::yes;
  WindowController& controller = addWindowController(kind->create(windowContext()), &settings, restoreFrame);
  isToday ? showTodayWindow(controller) : controller.showWindow();
}

WindowController& AppController::windowOfClass(const char* className) {
  if (WindowController* const open = frontmostOf(className)) return *open;
  const WindowKind* const kind = kindNamed(setup_.windowKinds, className);
  const bool coversScreen = kind->className == kTodayWindowClass && gKioskMode;
  return addWindowController(kind->create(windowContext()), nullptr,
                             coversScreen ? RestoreFrame::no : RestoreFrame::yes);
}

void AppController::todayWindow() {
  WindowController& controller = windowOfClass(kTodayWindowClass);
  if (auto* const today = dynamic_cast<TodayWindowController*>(&controller)) {
    giveRink(*today, dynamic_cast<MainWindowController*>(frontmostOf(kMainWindowClass)), *dataModel_);
  }
  showTodayWindow(controller);
}

void AppController::showTodayWindow(WindowController& controller) {
  controller.showWindow();
  // A kiosk window fits itself to its screen when it is given any frame.
  if (gKioskMode) controller.window()->setFrame(controller.window()->frame());
}

void AppController::clockWindow() {
  windowOfClass(kClockWindowClass).showWindow();
}

bool AppController::kioskMode() const {
  return gKioskMode;
}

void AppController::setCursorHiding(CursorHiding hiding) {
  if (setup_.cursorHider) setup_.cursorHider->setEnableCursorHiding(hiding);
}

bool AppController::isDefaultWindow(const WindowController& controller) const {
  return controller.className() == kMainWindowClass;
}

WindowContext AppController::windowContext() {
  return {services(),       *dataModel_,           *errorLog_, *clockTimer_,
          setup_.workspace, setup_.observerCensus, *this,      setup_.sounds};
}

}  // namespace tarvel
