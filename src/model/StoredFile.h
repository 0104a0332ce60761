#pragma once
#include <optional>
#include <string>

#include "foundation/DecodeError.h"
#include "foundation/MessageLog.h"
#include "foundation/Services.h"

namespace tarvel {

/// Stores a server's file: makes the folder if it lacks, and writes the file as one step, with the
/// modification date by which the program later knows which version it holds. What fails goes to the log
/// ("Unable to create folder: ", "Unable to save file: "); false then, and the old file stands.
bool storeFile(const Services& services, MessageLog& errorLog, ByteView content, const std::string& name,
               const Path& folder, std::optional<Instant> date,
               std::optional<std::uint16_t> permissions = std::nullopt);

/// A stored file's modification date, asked of the disk afresh; none if there is no such file.
std::optional<Instant> storedDate(FileSystem& files, const Path& path);

/// The exact date of a promise read from the state file, which holds dates to the whole second only: if the
/// stored file's date agrees to the second, the promise was that file's date.
std::optional<Instant> restoredPromise(FileSystem& files, std::optional<Instant> wholeSeconds,
                                       const Path& path);

/// Logs that a stored file can't be decoded, and removes it: its date must not vouch for it any longer, or a
/// refresh would take it for current and never fetch it anew.
void dropDamagedFile(const Services& services, MessageLog& errorLog, const Path& path,
                     const DecodeError& error);

/// Prints "removing file: " and the path, and removes the file; a failure is passed over.
void removeStoredFile(const Services& services, const Path& path);

}  // namespace tarvel
