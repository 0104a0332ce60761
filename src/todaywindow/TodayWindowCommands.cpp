// The part of `TodayWindowController` that takes the commands of the menus.
#include <algorithm>

#include "todaywindow/TodayWindowController.h"

namespace tarvel {
namespace {

using Controller = TodayWindowController;

struct WindowCommand {
  std::string_view action;
  void (*perform)(Controller&);
};

constexpr WindowCommand kCommands[] = {
    {"refreshNow:", [](Controller& window) { window.refreshNow(); }},
    {"printWindow:", [](Controller& window) { window.printWindow(); }},
    {"increaseTextSize:", [](Controller& window) { window.todayScheduleView().increaseFontSize(); }},
    {"decreaseTextSize:", [](Controller& window) { window.todayScheduleView().decreaseFontSize(); }},
};

const WindowCommand* commandNamed(std::string_view action) {
  const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                         [action](const WindowCommand& row) { return row.action == action; });
  return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace

std::optional<CommandState> TodayWindowController::validateMenuItem(const Command& command) const {
  if (!commandNamed(command.action)) return std::nullopt;
  return CommandState{.enabled = chosenRink() != nullptr};
}

void TodayWindowController::performCommand(const Command& command) {
  if (const WindowCommand* const row = commandNamed(command.action)) row->perform(*this);
}

}  // namespace tarvel
