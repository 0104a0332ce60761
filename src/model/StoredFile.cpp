#include "model/StoredFile.h"

#include <cmath>

#include "platform/AtomicFile.h"

namespace tarvel {

bool storeFile(const Services& services, MessageLog& errorLog, ByteView content, const std::string& name,
               const Path& folder, std::optional<Instant> date, std::optional<std::uint16_t> permissions) {
  if (!services.files.info(folder)) {
    if (const Status made = createFoldersSafely(services.files, folder); !made) {
      errorLog.addMessage("Unable to create folder: " + folder);
      services.console.printLine("    " + made.error().description);
      return false;
    }
  }
  const Path path = join(folder, name);
  const Status written = writeAtomically(services.files, path, content, {date, permissions});
  if (!written) {
    errorLog.addMessage("Unable to save file: " + path);
    services.console.printLine("    " + written.error().description);
  }
  return written.ok();
}

std::optional<Instant> storedDate(FileSystem& files, const Path& path) {
  const std::optional<FileInfo> info = files.info(path);
  if (!info || info->kind != FileKind::file) return std::nullopt;
  return info->modificationDate;
}

std::optional<Instant> restoredPromise(FileSystem& files, std::optional<Instant> wholeSeconds,
                                       const Path& path) {
  if (!wholeSeconds) return std::nullopt;
  const std::optional<Instant> stored = storedDate(files, path);
  if (stored && std::floor(stored->seconds) == wholeSeconds->seconds) return stored;
  return wholeSeconds;
}

void dropDamagedFile(const Services& services, MessageLog& errorLog, const Path& path,
                     const DecodeError& error) {
  errorLog.addMessage("Unable to decode file: " + path + " -- " + error.what());
  (void)services.files.remove(path);
}

void removeStoredFile(const Services& services, const Path& path) {
  services.console.printLine("removing file: " + path);
  (void)services.files.remove(path);
}

}  // namespace tarvel
