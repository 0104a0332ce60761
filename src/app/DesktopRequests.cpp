#include "app/DesktopRequests.h"

#include "app/AppController.h"
#include "ui/CommandTarget.h"

namespace tarvel {

void DesktopRequests::openFirstWindows() {
  if (controller_.firstActivation) controller_.applicationDidBecomeActive();
}

void DesktopRequests::showYourself(const StartupNotice& notice) {
  notice.announce();
  openFirstWindows();
  controller_.applicationShouldHandleReopen(!Window::orderedWindows().empty());
  const auto windows = Window::orderedWindows();
  if (windows.empty()) return;
  Window& front = *windows.front();
  front.setWindowState(front.windowState() & ~Qt::WindowMinimized);
  front.makeKeyAndOrderFront();
  if (const QWindow* const handle = front.windowHandle()) notice.complete(*handle);
}

void DesktopRequests::showToday(const StartupNotice& notice) {
  openFirstWindows();
  const DataModel* const model = controller_.dataModel();
  if (model && !model->rinkList.empty()) controller_.todayWindow();
  showYourself(notice);
}

void DesktopRequests::refresh() {
  openFirstWindows();
  constexpr Command kRefresh{"refreshNow:"};
  for (const auto& window : controller_.windowControllers) {
    auto* const target = dynamic_cast<CommandTarget*>(window.get());
    const auto state = target ? target->validateMenuItem(kRefresh) : std::nullopt;
    if (state && state->enabled) target->performCommand(kRefresh);
  }
  controller_.masterRefresh();
}

}  // namespace tarvel
