#include "app/AppCommands.h"

#include <algorithm>

#include "app/AppController.h"
#include "app/Globals.h"

namespace tarvel {
namespace {

/// The class of the frontmost window's controller; empty without one.
std::string frontmostClass() {
  const auto windows = Window::orderedWindows();
  if (windows.empty()) return {};
  const auto* controller = dynamic_cast<const WindowController*>(windows.front()->delegate());
  return controller ? controller->className() : std::string();
}

CommandState always(AppController&) {
  return {};
}

CommandState mainWindowState(AppController&) {
  return {.enabled = frontmostClass() != kMainWindowClass};
}

CommandState todayWindowState(AppController& controller) {
  const DataModel* model = controller.dataModel();
  return {.enabled = frontmostClass() != kTodayWindowClass && model && !model->rinkList.empty()};
}

CommandState debugMenuState(AppController& controller) {
  return {.title = controller.showingDebugMenu ? "Hide Debug Menu" : "Show Debug Menu"};
}

CommandState websiteState(AppController& controller) {
  const DataModel* model = controller.dataModel();
  return {.enabled = model && !model->applicationWebsiteURL.empty()};
}

CommandState kioskState(AppController&) {
  return {.checked = gKioskMode};
}

struct AppCommand {
  std::string_view action;
  void (*perform)(AppController&);
  CommandState (*validate)(AppController&) = always;
};

constexpr AppCommand kCommands[] = {
    {"mainWindow:", [](AppController& app) { app.mainWindow(); }, mainWindowState},
    {"todayWindow:", [](AppController& app) { app.todayWindow(); }, todayWindowState},
    {"tarvelURLWindow:", [](AppController& app) { app.tarvelURLWindow(); }},
    {"clockWindow:", [](AppController& app) { app.clockWindow(); }},
    {"debugWindow:", [](AppController& app) { app.debugWindow(); }},
    {"errorLogWindow:", [](AppController& app) { app.errorLogWindow(); }},
    {"toggleKioskMode:", [](AppController& app) { app.toggleKioskMode(); }, kioskState},
    {"toggleDebugMenu:", [](AppController& app) { app.toggleDebugMenu(); }, debugMenuState},
    {"checkForAppUpdate:", [](AppController& app) { app.checkForAppUpdate(); }},
    {"visitAppWebsite:", [](AppController& app) { app.visitAppWebsite(); }, websiteState},
    {"masterRefresh:", [](AppController& app) { app.masterRefresh(); }},
    {"freeMemory:", [](AppController& app) { app.freeMemory(); }},
    {"closeAllWindows:", [](AppController& app) { app.closeAllWindows(); }},
    {"quitApplication:", [](AppController& app) { app.quitApplication(); }},
};

const AppCommand* commandNamed(std::string_view action) {
  const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                         [action](const AppCommand& row) { return row.action == action; });
  return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace

std::optional<CommandState> AppCommands::validateMenuItem(const Command& command) const {
  if (command.action.empty()) return CommandState{.enabled = false};
  const AppCommand* const row = commandNamed(command.action);
  return row ? std::optional(row->validate(controller_)) : std::nullopt;
}

void AppCommands::performCommand(const Command& command) {
  if (const AppCommand* const row = commandNamed(command.action)) row->perform(controller_);
}

}  // namespace tarvel
