#include "app/MorvAppController.h"

#include <QCoreApplication>
#include <algorithm>

#include "app/Globals.h"
#include "foundation/CalendarDates.h"
#include "ui/NamedColors.h"
#include "ui/WindowSettingsProtocol.h"

namespace tarvel {

namespace {

constexpr const char* kFrameKey = "frame";

void applySavedFrame(Window& window, const PropertyList::Dictionary& settings) {
  if (const auto frame = textAt(settings, kFrameKey)) window.setFrameFromString(*frame);
}

void cascadeOff(const Window& sibling, Window& window) {
  const Rect frame = sibling.frame();
  window.setFrame(frame);
  window.setFrameTopLeftPoint(window.cascadeTopLeftFromPoint({frame.x, frame.maxY()}));
}

}  // namespace

MorvAppController::MorvAppController(const Services& services, Path supportFolder, ClassRegistry classes)
    : services_(services),
      supportFolder_(std::move(supportFolder)),
      classes_(std::move(classes)),
      self_(std::make_shared<MorvAppController*>(this)) {
  gAppSupportURL = supportFolder_;
  services_.console.printLine("gAppSupportURL = " + supportFolder_);
  prepareWeekdays(yearOf(todayDate(services_.pretendTime)));
  checkNamedColors();
}

MorvAppController::~MorvAppController() {
  *self_ = nullptr;
  deleteAllWindows();
  gAppSupportURL.reset();
}

void MorvAppController::applicationWillFinishLaunching() {
  gMenuBarHeight = 0.0;  // no menu bar belongs to the whole screen here
}

void MorvAppController::applicationDidFinishLaunching() {
  launchCompleted = true;
}

void MorvAppController::applicationDidBecomeActive() {
  if (Window::orderedWindows().empty()) showDefaultWindow();
}

void MorvAppController::applicationWillTerminate() {
  terminating = true;
  forEachWindow(&Window::close);
}

bool MorvAppController::applicationShouldHandleReopen(bool hasVisibleWindows) {
  if (!hasVisibleWindows) showDefaultWindow();
  return false;
}

void MorvAppController::closeAllWindows() {
  forEachWindow(&Window::performClose);
}

void MorvAppController::forEachWindow(void (Window::*operation)()) {
  std::vector<const WindowController*> snapshot(windowControllers.size());
  const auto identity = [](const auto& controller) { return controller.get(); };
  std::transform(windowControllers.begin(), windowControllers.end(), snapshot.begin(), identity);
  for (const WindowController* controller : snapshot) {
    const auto found = std::find_if(windowControllers.begin(), windowControllers.end(),
                                    [controller](const auto& entry) { return entry.get() == controller; });
    if (found != windowControllers.end()) ((*found)->window()->*operation)();
  }
}

void MorvAppController::quitApplication() {
  QCoreApplication::quit();
}

const PropertyList::Dictionary* MorvAppController::settingsForClassName(const std::string& className) const {
  return tarvel::settingsForClassName(windowSettings, classes_, className);
}

WindowController& MorvAppController::addWindowController(std::unique_ptr<WindowController> controller,
                                                         const PropertyList::Dictionary* settings,
                                                         RestoreFrame restoreFrame) {
  WindowController& added = *windowControllers.emplace_back(std::move(controller));
  Window& window = *added.window();
  prepareWindow(added);
  auto* const keeper = dynamic_cast<WindowSettingsProtocol*>(&added);
  PropertyList::Dictionary taken;  // settings given may stand in a list that what follows changes
  bool found = settings != nullptr;
  bool takesFrame = restoreFrame == RestoreFrame::yes;
  if (settings) taken = *settings;

  if (!found) {
    if (const WindowController* sibling = frontmostOf(added.className(), &added)) {
      cascadeOff(*sibling->window(), window);
      takesFrame = false;
      if (const auto* siblingKeeper = dynamic_cast<const WindowSettingsProtocol*>(sibling)) {
        taken = siblingKeeper->windowSettings();
        found = true;
      }
    }
  }
  if (!found) {
    if (const auto* saved = settingsForClassName(added.className())) {
      taken = *saved;
      found = true;
    }
  }
  if (!found) {
    if (keeper) keeper->defaultSettings();
    return added;
  }
  if (takesFrame) applySavedFrame(window, taken);
  if (keeper) keeper->restoreSettings(taken, FromAnotherDocument::no);
  return added;
}

void MorvAppController::removeWindowController(WindowController& controller, SaveFrame saveFrame) {
  const std::string className = controller.className();
  PropertyList::Dictionary settings;
  if (saveFrame == SaveFrame::yes) {
    settings = savedForm(controller);
  } else if (const auto* keeper = dynamic_cast<const WindowSettingsProtocol*>(&controller)) {
    settings = keeper->windowSettings();
    const auto* before = dictionaryAt(windowSettings, className);
    if (before && before->contains(kFrameKey)) settings[kFrameKey] = before->at(kFrameKey);
  }
  windowSettings[className] = std::move(settings);

  const bool isLast = Window::orderedWindows().size() == 1;
  if (!terminating && isLast && !isDefaultWindow(controller)) showDefaultWindow();
  letGo(controller);

  // What is being edited in a field ends with the field.
  if (QWidget* const focused = controller.window()->focusWidget()) focused->clearFocus();
}

void MorvAppController::letGo(WindowController& controller) {
  const auto found = std::find_if(windowControllers.begin(), windowControllers.end(),
                                  [&controller](const auto& entry) { return entry.get() == &controller; });
  if (found == windowControllers.end()) return;
  closedControllers_.push_back(std::move(*found));
  windowControllers.erase(found);
  services_.mainLoop.post([self = self_] {
    MorvAppController* const app = *self;
    if (!app) return;
    app->closedControllers_.clear();
    if (app->windowControllers.empty() && !app->terminating) app->quitApplication();
  });
}

PropertyList::Dictionary MorvAppController::savedForm(const WindowController& controller) {
  PropertyList::Dictionary form;
  if (const auto* keeper = dynamic_cast<const WindowSettingsProtocol*>(&controller))
    form = keeper->windowSettings();
  form[kFrameKey] = controller.window()->stringWithSavedFrame();
  return form;
}

WindowController* MorvAppController::controllerOf(const Window& window) {
  return dynamic_cast<WindowController*>(window.delegate());
}

WindowController* MorvAppController::frontmostOf(const std::string& className,
                                                 const WindowController* except) {
  for (const Window* window : Window::orderedWindows()) {
    WindowController* const controller = controllerOf(*window);
    if (controller && controller != except && controller->className() == className) return controller;
  }
  return nullptr;
}

void MorvAppController::deleteAllWindows() {
  closedControllers_.clear();
  windowControllers.clear();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace tarvel
