#include "platform/AtomicFile.h"

#include <fmt/format.h>

namespace tarvel {

namespace {

constexpr std::string_view kTemporaryPrefix = ".";
constexpr std::string_view kTemporarySuffix = ".part";

/// Hidden, so that no pass over a folder's visible files meets it, and made from the file's own name, so that
/// the next write of that file uses it up.
Path temporaryFor(const Path& path) {
  return join(parentOf(path), fmt::format("{}{}{}", kTemporaryPrefix, fileNameOf(path), kTemporarySuffix));
}

bool isTemporary(std::string_view name) {
  return name.size() > kTemporaryPrefix.size() + kTemporarySuffix.size() &&
         name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix);
}

Status writeSafely(FileSystem& files, const Path& path, ByteView content, const FileAttributes& attributes) {
  if (Status written = files.write(path, content); !written) return written;
  if (attributes.modificationDate || attributes.permissions) {
    if (Status changed = files.setAttributes(path, attributes); !changed) return changed;
  }
  return files.sync(path);
}

}  // namespace

Status writeAtomically(FileSystem& files, const Path& path, ByteView content,
                       const FileAttributes& attributes) {
  const Path temporary = temporaryFor(path);
  Status outcome = writeSafely(files, temporary, content, attributes);
  if (outcome) outcome = files.rename(temporary, path);
  if (!outcome) {
    (void)files.remove(temporary);  // the first failure is the one to report
    return outcome;
  }
  // The new file stands, whole. Were its folder not synced, a power cut could at worst bring back the old
  // one.
  (void)files.sync(parentOf(path));
  return Done{};
}

Status createFoldersSafely(FileSystem& files, const Path& folder) {
  Path above = folder;
  std::vector<Path> changed;
  while (above.size() > 1 && !files.info(above)) {
    above = parentOf(above);
    changed.push_back(above);
  }
  if (Status made = files.createFolders(folder); !made) return made;
  for (const Path& parent : changed) (void)files.sync(parent);
  return Done{};
}

void removeLeftoverTemporaries(FileSystem& files, const Path& folder) {
  const auto entries = files.list(folder);
  if (!entries) return;
  for (const FolderEntry& entry : *entries) {
    if (isTemporary(entry.name)) (void)files.remove(join(folder, entry.name));
  }
}

}  // namespace tarvel
