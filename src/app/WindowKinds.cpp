#include "app/WindowKinds.h"

#include <algorithm>

#include "mainwindow/MainWindowController.h"

namespace tarvel {

namespace {

constexpr const char* kRootClass = "WindowController";
constexpr const char* kDataLoadingClass = "DataLoadingWindowController";

}  // namespace

WindowKinds applicationWindowKinds() {
  return {
      {kMainWindowClass, kDataLoadingClass,
       [](const WindowContext& context) { return MainWindowController::create(context); },
       WindowKind::ComesBack::yes},
  };
}

const WindowKind* kindNamed(const WindowKinds& kinds, const std::string& className) {
  const auto found = std::find_if(kinds.begin(), kinds.end(), [&className](const WindowKind& kind) {
    return kind.className == className;
  });
  return found == kinds.end() ? nullptr : &*found;
}

ClassRegistry classesOf(const WindowKinds& kinds) {
  ClassRegistry classes;
  classes.add(kRootClass, "");
  classes.add(kDataLoadingClass, kRootClass);
  for (const WindowKind& kind : kinds) classes.add(kind.className, kind.baseClassName);
  return classes;
}

}  // namespace tarvel
