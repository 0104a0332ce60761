#pragma once
#include <string_view>

#include "app/Version.h"
#include "platform/Console.h"

namespace tarvel {

/// What the build was configured with: the application's name and version, and what a translation has made of
/// them.
struct AppInfo {
  std::string_view name;
  std::string_view version;
  std::string_view localizedName;
  std::string_view localizedVersion;
};

/// Written by the build from the project's own name and version.
extern const AppInfo kAppInfo;

/// The name of the application among all others: on the desktop's bus, to its compositor, and of the files
/// that are installed for its launchers.
extern const std::string_view kApplicationId;

/// True if both versions of the record are that of the code. Otherwise prints the three of them: a build
/// whose numbers disagree must not run.
bool versionsAgree(const AppInfo& info, PackedVersion codeVersion, Console& console);

}  // namespace tarvel
