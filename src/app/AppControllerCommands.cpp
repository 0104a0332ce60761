#include "app/AppController.h"
#include "app/Globals.h"
#include "app/MenuBar.h"
#include "ui/WindowObjectProtocol.h"

// The commands that are the application's own.

namespace tarvel {

void AppController::prepareWindow(WindowController& controller) {
  MenuBar::install(*controller.window(), commands_, showingDebugMenu ? DebugMenu::shown : DebugMenu::hidden);
}

void AppController::mainWindow() {
  windowOfClass(kMainWindowClass).showWindow();
}

void AppController::tarvelURLWindow() {
  windowOfClass(kServerURLWindowClass).showWindow();
}

void AppController::debugWindow() {
  windowOfClass(kDebugWindowClass).showWindow();
}

void AppController::errorLogWindow() {
  for (const Window* window : Window::orderedWindows()) {
    WindowController* const controller = controllerOf(*window);
    const auto* shower = dynamic_cast<const WindowObjectProtocol*>(controller);
    if (!shower || controller->className() != kLogWindowClass || shower->windowObject() != errorLog_.get())
      continue;
    return controller->showWindow();
  }
  const WindowKind* const kind = kindNamed(setup_.windowKinds, kLogWindowClass);
  addWindowController(kind->create(windowContext()), nullptr, RestoreFrame::yes).showWindow();
}

void AppController::toggleKioskMode() {
  gKioskMode = !gKioskMode;
  markChanged();
}

void AppController::toggleDebugMenu() {
  showingDebugMenu = !showingDebugMenu;
  for (const auto& controller : windowControllers) {
    MenuBar* const bar = MenuBar::of(*controller->window());
    if (bar) bar->setDebugMenu(showingDebugMenu ? DebugMenu::shown : DebugMenu::hidden);
  }
}

void AppController::checkForAppUpdate() {
  masterRefresh_->checkForUpdate();
}

void AppController::visitAppWebsite() {
  const std::string& url = dataModel_->applicationWebsiteURL;
  if (url.empty()) return;
  services().console.printLine("visitAppWebsite: " + url);
  openPage(url);
}

void AppController::masterRefresh() {
  masterRefresh_->masterRefresh();
}

void AppController::freeMemory() {
  dataModel_->freeMemory();
}

}  // namespace tarvel
