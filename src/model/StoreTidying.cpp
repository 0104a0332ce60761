#include "model/DataModel.h"
#include "model/FileNames.h"
#include "model/StoredFile.h"

/// The store's side of `DataModel`: what is dropped and removed at quit.
namespace tarvel {

namespace {

constexpr double kStaleRinkAge = 2'419'200.0;     // 28 days
constexpr double kOldStateFileAge = 1'209'600.0;  // 14 days

/// The id in a folder's name of the form "rink-7".
std::optional<std::int64_t> rinkOfFolder(const std::string& name) {
  const std::size_t hyphen = name.find('-');
  if (name.substr(0, hyphen) != "rink" || hyphen == std::string::npos) return std::nullopt;
  const std::string number = name.substr(hyphen + 1);
  if (number.find('-') != std::string::npos) return std::nullopt;
  return parseInteger(number);
}

}  // namespace

void DataModel::prepareToQuit() {
  refresher_->invalidateTimer();
  freeMemoryTimer_ = nullptr;
  for (const auto& rink : recentRinks) rink->refresher().invalidateTimer();
  dropStaleRinks();
  tidyApplicationFolder();
  for (const auto& rink : recentRinks) rink->tidyFiles();
  removeOldStateFile();
}

void DataModel::dropStaleRinks() {
  const Instant now = context_.services.clock.now();
  std::erase_if(recentRinks, [&](const std::shared_ptr<RinkData>& rink) {
    const bool fresh = rink->rinkInfo() && rink->lastViewed && now - *rink->lastViewed <= kStaleRinkAge;
    if (!fresh) rink->retire();
    return !fresh;
  });
}

void DataModel::tidyApplicationFolder() {
  FileSystem& files = context_.services.files;
  const auto entries = listVisible(files, context_.supportFolder);
  if (!entries) return;
  const auto inUse = [&](std::int64_t rinkID) {
    for (const auto& rink : recentRinks) {
      if (rink->rinkID == rinkID) return true;
    }
    return false;
  };
  for (const FolderEntry& entry : *entries) {
    const Path path = join(context_.supportFolder, entry.name);
    const std::optional<std::int64_t> rinkID =
        entry.kind == FileKind::folder ? rinkOfFolder(entry.name) : std::nullopt;
    const bool oldCatalogue = entry.kind == FileKind::file && extensionOf(entry.name) == "json";
    const bool unusedRink = rinkID && !inUse(*rinkID);
    if (!oldCatalogue && !unusedRink) continue;
    // The first failure ends the tidying: the next quit tries again.
    if (!files.remove(path)) return;
    context_.services.console.printLine((oldCatalogue ? "removed file: " : "removed folder: ") + path);
  }
}

void DataModel::removeOldStateFile() {
  FileSystem& files = context_.services.files;
  const Path path = join(join(parentOf(context_.supportFolder), "Tarvel"), "application-state");
  const std::optional<Instant> date = storedDate(files, path);
  if (!date || context_.services.clock.now() - *date <= kOldStateFileAge) return;
  context_.services.console.printLine("Deleting " + path);
  (void)files.remove(path);
}

}  // namespace tarvel
