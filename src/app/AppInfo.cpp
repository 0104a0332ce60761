#include "app/AppInfo.h"

#include <fmt/format.h>

namespace tarvel {

bool versionsAgree(const AppInfo& info, PackedVersion codeVersion, Console& console) {
  const std::string codeText = versionText(codeVersion);
  if (info.version == info.localizedVersion && info.version == codeText) return true;
  console.printLine("version mismatch");
  console.printLine(fmt::format("   version           = {}", info.version));
  console.printLine(fmt::format("   localized version = {}", info.localizedVersion));
  console.printLine(fmt::format("   kAppVersion       = {}", codeText));
  return false;
}

}  // namespace tarvel
