#include "app/MenuBar.h"

#include <QActionGroup>
#include <QLayout>
#include <QShortcut>
#include <algorithm>

#include "ui/Window.h"

namespace tarvel {
namespace {

constexpr std::string_view kPerformClose = "performClose:";
constexpr std::string_view kPerformZoom = "performZoom:";

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool hasRoom(const Window& window) {
  const bool isDialog = (window.windowFlags() & Qt::WindowType_Mask) == Qt::Dialog;
  return window.layout() && !isDialog && !(window.windowFlags() & Qt::FramelessWindowHint);
}

}  // namespace

MenuBar::MenuBar(Window& window, CommandTarget& application)
    : QMenuBar(&window), window_(window), application_(application) {
  setNativeMenuBar(false);
  for (const Menu& menu : menuTable()) addTable(menu);
  enableKeys();
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
  return !isHidden() && QMenuBar::eventFilter(watched, event);
}

void MenuBar::openWithKey() {
  setFocus(Qt::MenuBarFocusReason);
  setActiveAction(actions().front());
}

MenuBar* MenuBar::install(Window& window, CommandTarget& application, DebugMenu debugMenu) {
  auto* bar = new MenuBar(window, application);
  bar->setDebugMenu(debugMenu);
  if (hasRoom(window)) {
    window.layout()->setMenuBar(bar);
    connect(new QShortcut(Qt::Key_F10, &window), &QShortcut::activated, bar, &MenuBar::openWithKey);
  } else {
    bar->hide();
    for (const Item& item : bar->items_) window.addAction(item.action);
  }
  return bar;
}

MenuBar* MenuBar::of(const Window& window) {
  return window.findChild<MenuBar*>(QString(), Qt::FindDirectChildrenOnly);
}

QMenu* MenuBar::addTable(const Menu& table) {
  QMenu* menu = addMenu(toText(table.title));
  for (const MenuItem& row : table.items) {
    if (row.title.empty()) {
      menu->addSeparator();
    } else {
      addItem(*menu, row);
    }
  }
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { validate(*menu); });
  connect(menu, &QMenu::aboutToHide, this, &MenuBar::enableKeys);
  return menu;
}

void MenuBar::addItem(QMenu& menu, const MenuItem& row) {
  const QString title = toText(row.title);
  QAction* action = menu.addAction(title);
  action->setShortcuts(row.keys);
  const Command command = row.command;
  const auto sibling = std::find_if(items_.begin(), items_.end(), [&](const Item& item) {
    return item.command.action == command.action && item.action->parent() == &menu;
  });
  if (sibling != items_.end()) {
    QActionGroup* group = sibling->action->actionGroup();
    if (!group) group = new QActionGroup(&menu);
    group->addAction(sibling->action);
    group->addAction(action);
  }
  connect(action, &QAction::triggered, this, [this, command] { perform(command); });
  items_.push_back({action, command, title});
}

void MenuBar::setDebugMenu(DebugMenu debugMenu) {
  if ((debugMenu == DebugMenu::shown) == (debugMenu_ != nullptr)) return;
  if (!debugMenu_) {
    debugMenu_ = addTable(tarvel::debugMenu());
    return;
  }
  std::erase_if(items_, [this](const Item& item) { return item.action->parent() == debugMenu_; });
  removeAction(debugMenu_->menuAction());
  debugMenu_->deleteLater();
  debugMenu_ = nullptr;
}

CommandTarget* MenuBar::targetOf(const Command& command) const {
  auto* const own = dynamic_cast<CommandTarget*>(window_.delegate());
  return own && own->validateMenuItem(command) ? own : &application_;
}

std::optional<CommandState> MenuBar::stateOf(const Command& command) const {
  if (command.action == kPerformClose || command.action == kPerformZoom) return CommandState{};
  return targetOf(command)->validateMenuItem(command);
}

void MenuBar::validate(const QMenu& menu) {
  for (const Item& item : items_) {
    if (item.action->parent() != &menu) continue;
    const auto state = stateOf(item.command);
    item.action->setEnabled(state && state->enabled);
    if (!state) continue;
    item.action->setText(state->title ? QString::fromStdString(*state->title) : item.title);
    item.action->setCheckable(state->checked.has_value());
    item.action->setChecked(state->checked.value_or(false));
  }
}

void MenuBar::enableKeys() {
  // A command that means nothing in this window leaves its key to what stands in the window.
  for (const Item& item : items_) item.action->setEnabled(stateOf(item.command).has_value());
}

void MenuBar::perform(const Command& command) {
  const auto state = stateOf(command);
  if (!state || !state->enabled) return;
  if (command.action == kPerformClose) {
    window_.performClose();
  } else if (command.action == kPerformZoom) {
    window_.zoom();
  } else {
    targetOf(command)->performCommand(command);
  }
}

}  // namespace tarvel
