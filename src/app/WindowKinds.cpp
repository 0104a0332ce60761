#include "app/WindowKinds.h"

#include <algorithm>

#include "auxwindows/AlertPanelWindowController.h"
#include "auxwindows/ClockWindowController.h"
#include "auxwindows/DebugWindowController.h"
#include "auxwindows/LogWindowController.h"
#include "auxwindows/TarvelURLWindowController.h"
#include "mainwindow/MainWindowController.h"
#include "todaywindow/TodayWindowController.h"

namespace tarvel {

namespace {

constexpr const char* kRootClass = "WindowController";
constexpr const char* kDataLoadingClass = "DataLoadingWindowController";

template <class Controller>
std::unique_ptr<WindowController> make(const WindowContext& context) {
  return std::make_unique<Controller>(context);
}

}  // namespace

WindowKinds applicationWindowKinds() {
  return {
      {kMainWindowClass, kDataLoadingClass,
       [](const WindowContext& context) { return MainWindowController::create(context); },
       WindowKind::ComesBack::yes},
      {kTodayWindowClass, kDataLoadingClass,
       [](const WindowContext& context) { return TodayWindowController::create(context); },
       WindowKind::ComesBack::yes},
      {kClockWindowClass, kRootClass,
       [](const WindowContext& context) { return ClockWindowController::create(context); },
       WindowKind::ComesBack::no},
      {kLogWindowClass, kDataLoadingClass,
       [](const WindowContext& context) {
         return std::make_unique<LogWindowController>(context, context.errorLog, QStringLiteral("Error Log"));
       }},
      {kDebugWindowClass, kRootClass, make<DebugWindowController>},
      {kServerURLWindowClass, kRootClass, make<TarvelURLWindowController>},
      {kAlertPanelClass, kRootClass, make<AlertPanelWindowController>},
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
