#pragma once
#include "platform/FileSystem.h"

namespace tarvel {

/// Writes a file so that a crash or a power cut at any instant leaves the old content or the new one, whole,
/// with the attributes given: a temporary file in the same folder is written, gets its attributes and is
/// synced; then it takes the file's name, and the folder is synced. The folder must exist. On failure the old
/// file stands and the temporary one is removed. A folder that can't be synced is no failure: the new file
/// stands already.
Status writeAtomically(FileSystem& files, const Path& path, ByteView content,
                       const FileAttributes& attributes = {});

/// Makes the folder and all missing ones above it, and syncs the folders in which they appeared: what is
/// stored in a folder is safe against a power cut only if the folder is. A sync that fails is no failure.
Status createFoldersSafely(FileSystem& files, const Path& folder);

/// Removes temporary files that a crash left in the folder (not in the folders below it), and whatever else
/// bears such a name, which would be in the way of the next write. Failures are passed over.
void removeLeftoverTemporaries(FileSystem& files, const Path& folder);

}  // namespace tarvel
