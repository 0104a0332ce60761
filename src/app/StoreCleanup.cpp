#include "app/StoreCleanup.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/AtomicFile.h"

namespace tarvel {

namespace {

constexpr std::array<std::string_view, 5> kTopLevelFiles = {"appState.plist", "appState_testing.plist",
                                                            "rinks.b1", "defs.b1", "error-log.b1"};
constexpr std::array<std::string_view, 4> kRinkFiles = {"main.b1", "notices.b1", "photoCollection.b1",
                                                        "docCollection.b1"};
constexpr std::string_view kLogosFolder = "logos";
constexpr std::string_view kPhotosFolder = "Photos";
constexpr std::string_view kDocumentsFolder = "Documents";
constexpr std::string_view kRinkFolderPrefix = "rink-";

enum class GoOn { no, yes };

template <std::size_t n>
bool contains(const std::array<std::string_view, n>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool isRinkFolder(const FolderEntry& entry) {
  return entry.kind == FileKind::folder && entry.name.starts_with(kRinkFolderPrefix);
}

/// What belongs in a place of the store.
enum class Place { none, file, folder };
using PlaceOf = Place (*)(const std::string& name);

bool keepsRinkFile(const std::string& name) {
  return contains(kRinkFiles, name) || (name.starts_with("venue-") && extensionOf(name) == "b1");
}

Place placeInStore(const std::string& name) {
  if (contains(kTopLevelFiles, name)) return Place::file;
  return name == kLogosFolder || name.starts_with(kRinkFolderPrefix) ? Place::folder : Place::none;
}
Place placeInRinkFolder(const std::string& name) {
  if (keepsRinkFile(name)) return Place::file;
  return name == kPhotosFolder ? Place::folder : Place::none;
}
Place placeAmongPictures(const std::string& name) {
  return extensionOf(name) == "jpg" || extensionOf(name) == "png" ? Place::file : Place::none;
}

bool serves(const FolderEntry& entry, Place place) {
  if (place == Place::folder) return entry.kind == FileKind::folder;
  return place == Place::none || entry.kind != FileKind::folder;
}

/// Names of the first layout: "123.jpg" and "123-thumb.jpg". Today's have the form "123-800.jpg".
bool isOldPhoto(const std::string& name) {
  const std::string stem = withoutExtension(name);
  const auto hyphen = stem.find('-');
  return hyphen == std::string::npos || stem.substr(hyphen + 1) == "thumb";
}

/// The deletions of one clean-up.
class Cleanup {
 public:
  Cleanup(FileSystem& files, Console& console) : files_(files), console_(console) {}

  GoOn topLevel(const Path& folder) {
    return forEach(folder, [this, &folder](const FolderEntry& entry) {
      if (entry.kind != FileKind::folder) {
        return contains(kTopLevelFiles, entry.name) ? GoOn::yes : remove("remove file: ", folder, entry);
      }
      if (isRinkFolder(entry)) return rinkFolder(join(folder, entry.name));
      if (entry.name == kLogosFolder) return GoOn::yes;
      return remove("remove folder: ", folder, entry);
    });
  }

 private:
  GoOn rinkFolder(const Path& folder) {
    return forEach(folder, [this, &folder](const FolderEntry& entry) {
      if (entry.kind != FileKind::folder) {
        return keepsRinkFile(entry.name) ? GoOn::yes : remove("     remove file: ", folder, entry);
      }
      if (entry.name == kPhotosFolder) return photosFolder(join(folder, entry.name));
      if (entry.name == kDocumentsFolder) return GoOn::yes;
      return remove("     remove folder: ", folder, entry);
    });
  }

  GoOn photosFolder(const Path& folder) {
    return forEach(folder, [this, &folder](const FolderEntry& entry) {
      return isOldPhoto(entry.name) ? remove("        remove file: ", folder, entry) : GoOn::yes;
    });
  }

  template <class Visit>
  GoOn forEach(const Path& folder, Visit visit) {
    const auto entries = listVisible(files_, folder);
    if (!entries) return GoOn::no;
    for (const FolderEntry& entry : *entries) {
      if (visit(entry) == GoOn::no) return GoOn::no;
    }
    return GoOn::yes;
  }

  GoOn remove(std::string_view line, const Path& folder, const FolderEntry& entry) {
    const Path path = join(folder, entry.name);
    console_.printLine(std::string(line) + path);
    return files_.remove(path) ? GoOn::yes : GoOn::no;
  }

  FileSystem& files_;
  Console& console_;
};

}  // namespace

void cleanUpStore(FileSystem& files, const Path& supportFolder, Console& console) {
  Cleanup(files, console).topLevel(supportFolder);
}

std::vector<Path> clearStorePlaces(FileSystem& files, const Path& supportFolder) {
  std::vector<Path> removed;
  const auto clear = [&](const Path& folder, PlaceOf placeOf) {
    const auto entries = listVisible(files, folder);
    if (!entries) return;
    for (const FolderEntry& entry : *entries) {
      if (serves(entry, placeOf(entry.name))) continue;
      const Path path = join(folder, entry.name);
      if (files.remove(path)) removed.push_back(path);
    }
  };
  clear(supportFolder, placeInStore);
  clear(join(supportFolder, kLogosFolder), placeAmongPictures);
  const auto entries = listVisible(files, supportFolder);
  if (!entries) return removed;
  for (const FolderEntry& entry : *entries) {
    if (!isRinkFolder(entry)) continue;
    const Path folder = join(supportFolder, entry.name);
    clear(folder, placeInRinkFolder);
    clear(join(folder, kPhotosFolder), placeAmongPictures);
  }
  return removed;
}

void removeLeftoversOfCrash(FileSystem& files, const Path& supportFolder) {
  removeLeftoverTemporaries(files, supportFolder);
  const auto entries = listVisible(files, supportFolder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    if (entry.kind != FileKind::folder) continue;
    const Path folder = join(supportFolder, entry.name);
    if (entry.name == kLogosFolder || isRinkFolder(entry)) removeLeftoverTemporaries(files, folder);
    if (isRinkFolder(entry)) removeLeftoverTemporaries(files, join(folder, kPhotosFolder));
  }
}

}  // namespace tarvel
