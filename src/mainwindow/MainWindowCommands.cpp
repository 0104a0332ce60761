// The part of `MainWindowController` that takes the commands of the menus.
#include <algorithm>
#include <array>

#include "mainwindow/MainWindowController.h"

namespace tarvel {
namespace {

using Controller = MainWindowController;

/// A command of the window's, and whether it can be given now. Of all, only printing may be refused; the
/// others do nothing where they have no meaning.
struct WindowCommand {
  std::string_view action;
  void (*perform)(Controller&, int tag);
  CommandState (*state)(const Controller&, int tag);
};

CommandState always(const Controller&, int) {
  return {};
}

CommandState paneState(const Controller& window, int tag) {
  return {true, std::nullopt, static_cast<int>(window.currentPaneKind()) == tag};
}

constexpr std::array<WindowCommand, 12> kCommands{{
    {"printWindow:", [](Controller& w, int) { w.printWindow(); },
     [](const Controller& w, int) { return CommandState{w.canPrint()}; }},
    {"refreshNow:", [](Controller& w, int) { w.refreshNow(); }, always},
    {"selectPane:", [](Controller& w, int tag) { w.selectPane(static_cast<MainWindowPane>(tag)); },
     paneState},
    {"toggleShowRinks:", [](Controller& w, int) { w.toggleShowRinks(); },
     [](const Controller& w, int) {
       return CommandState{true, std::nullopt, w.sidebars().showRinks};
     }},
    {"toggleShowCalendar:", [](Controller& w, int) { w.toggleShowCalendar(); },
     [](const Controller& w, int) {
       return CommandState{true, std::nullopt, w.sidebars().showCalendar};
     }},
    {"prev:", [](Controller& w, int) { w.prev(); }, always},
    {"next:", [](Controller& w, int) { w.next(); }, always},
    {"gotoNow:", [](Controller& w, int) { w.gotoNow(); }, always},
    {"increaseTextSize:", [](Controller& w, int) { w.schedule().increaseTextSize(); }, always},
    {"decreaseTextSize:", [](Controller& w, int) { w.schedule().decreaseTextSize(); }, always},
    {"visitWebsite:", [](Controller& w, int) { w.infoPane().visitWebsite(); }, always},
    {"locateOnMap:", [](Controller& w, int) { w.infoPane().locateOnMap(); }, always},
}};

const WindowCommand* commandNamed(std::string_view action) {
  const auto* found =
      std::find_if(kCommands.begin(), kCommands.end(),
                   [action](const WindowCommand& command) { return command.action == action; });
  return found == kCommands.end() ? nullptr : found;
}

}  // namespace

std::optional<CommandState> MainWindowController::validateMenuItem(const Command& command) const {
  const WindowCommand* known = commandNamed(command.action);
  if (!known) return std::nullopt;
  return known->state(*this, command.tag);
}

void MainWindowController::performCommand(const Command& command) {
  if (const WindowCommand* known = commandNamed(command.action)) known->perform(*this, command.tag);
}

}  // namespace tarvel
