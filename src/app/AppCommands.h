#pragma once
#include "ui/CommandTarget.h"

namespace tarvel {

class AppController;

/// The application's own commands, by their actions' names. Owned by the controller that carries them out.
/// Main thread.
class AppCommands : public CommandTarget {
 public:
  explicit AppCommands(AppController& controller) : controller_(controller) {}

  /// An item without an action is disabled.
  std::optional<CommandState> validateMenuItem(const Command& command) const override;
  void performCommand(const Command& command) override;

 private:
  AppController& controller_;
};

}  // namespace tarvel
