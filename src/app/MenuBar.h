#pragma once
#include <QMenuBar>
#include <vector>

#include "app/MenuTable.h"

namespace tarvel {

class Window;

enum class DebugMenu { hidden, shown };

/// The menus of one window. A command goes to the window's controller if that knows it, to the window itself
/// (closing, zooming), or else to the application. How an item stands is asked when its menu opens, and once
/// more when its key is pressed. A child of the window. Main thread.
class MenuBar : public QMenuBar {
  Q_OBJECT
 public:
  /// Puts a menu bar at the top of the window's layout. A dialog, a window without a frame and one without a
  /// layout have no room for it: there the keys alone work. The application outlives the window.
  static MenuBar* install(Window& window, CommandTarget& application, DebugMenu debugMenu);
  /// That of the window; null if none has been installed.
  static MenuBar* of(const Window& window);

  /// Adds the Debug menu at the end, or takes it away.
  void setDebugMenu(DebugMenu debugMenu);

 protected:
  /// A bar without room takes no keyboard focus, as a visible one does at the alternate key.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// An item of the bar with its command.
  struct Item {
    QAction* action;
    Command command;
    QString title;
  };

  MenuBar(Window& window, CommandTarget& application);
  QMenu* addTable(const Menu& menu);
  /// Items of one action are choices of which one at most is marked.
  void addItem(QMenu& menu, const MenuItem& row);
  /// Opens the first menu for one who has no mouse at hand.
  void openWithKey();
  CommandTarget* targetOf(const Command& command) const;
  std::optional<CommandState> stateOf(const Command& command) const;
  /// Brings the items of the menu that opens up to date.
  void validate(const QMenu& menu);
  /// The items' keys have to work while no menu is open, whatever the state was when one was.
  void enableKeys();
  void perform(const Command& command);

  Window& window_;
  CommandTarget& application_;
  std::vector<Item> items_;
  QMenu* debugMenu_ = nullptr;
};

}  // namespace tarvel
