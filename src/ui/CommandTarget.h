#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace tarvel {

/// One of the commands that stand in menus, by the name of its action, such as "printWindow:". Items of one
/// action are told apart by their tags.
struct Command {
  std::string_view action;
  int tag = 0;
};

/// How a command's menu item stands at the moment.
struct CommandState {
  bool enabled = true;
  std::optional<std::string> title = std::nullopt;  ///< instead of the menu's own
  std::optional<bool> checked = std::nullopt;       ///< none for an item that has no mark
};

/// Takes commands of the menu bar: a window's controller those of its window, the application all others.
/// Main thread.
class CommandTarget {
 public:
  virtual ~CommandTarget() = default;
  /// None for a command that isn't one of this target's.
  virtual std::optional<CommandState> validateMenuItem(const Command& command) const = 0;
  /// Only for a command of this target's that is enabled.
  virtual void performCommand(const Command& command) = 0;
};

}  // namespace tarvel
