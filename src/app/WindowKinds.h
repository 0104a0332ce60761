#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/ClassRegistry.h"
#include "auxwindows/WindowContext.h"
#include "ui/WindowController.h"

namespace tarvel {

inline constexpr const char* kMainWindowClass = "MainWindowController";
inline constexpr const char* kLogWindowClass = "LogWindowController";
inline constexpr const char* kDebugWindowClass = "DebugWindowController";
inline constexpr const char* kServerURLWindowClass = "TarvelURLWindowController";
inline constexpr const char* kAlertPanelClass = "AlertPanelWindowController";
inline constexpr const char* kTodayWindowClass = "TodayWindowController";
inline constexpr const char* kClockWindowClass = "ClockWindowController";

/// A class of window controllers that the application makes by name.
struct WindowKind {
  enum class ComesBack { no, yes };

  std::string className;
  std::string baseClassName;
  std::function<std::unique_ptr<WindowController>(const WindowContext&)> create;
  ComesBack comesBack = ComesBack::no;  ///< reopened after a restart if it was open
};

using WindowKinds = std::vector<WindowKind>;

/// The windows of this application.
WindowKinds applicationWindowKinds();

/// Null for an unknown name.
const WindowKind* kindNamed(const WindowKinds& kinds, const std::string& className);
/// The classes of those kinds, with their bases.
ClassRegistry classesOf(const WindowKinds& kinds);

}  // namespace tarvel
