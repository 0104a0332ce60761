#pragma once
#include <QKeySequence>
#include <QList>
#include <span>
#include <string_view>
#include <vector>

#include "ui/CommandTarget.h"

namespace tarvel {

/// A row of a menu. One without a title divides the menu.
struct MenuItem {
  std::string_view title;
  Command command;
  QList<QKeySequence> keys = {};
};

struct Menu {
  std::string_view title;
  std::vector<MenuItem> items;
};

/// The menus of every window's menu bar, without the Debug menu.
std::span<const Menu> menuTable();
/// The menu that comes and goes at the user's wish.
const Menu& debugMenu();

}  // namespace tarvel
