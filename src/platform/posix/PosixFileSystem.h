#pragma once
#include "platform/FileSystem.h"

namespace tarvel {

/// The machine's disk. Error texts are the system's own.
class PosixFileSystem : public FileSystem {
 public:
  /// Refuses whatever is not a regular file.
  Result<Bytes> read(const Path& path) override;
  /// Fails where a link or a pipe stands at the path.
  Status write(const Path& path, ByteView content) override;
  std::optional<FileInfo> info(const Path& path) override;
  /// The date first, the permissions last.
  Status setAttributes(const Path& path, const FileAttributes& attributes) override;
  Status sync(const Path& path) override;
  Status rename(const Path& from, const Path& to) override;
  Status remove(const Path& path) override;
  Result<std::vector<FolderEntry>> list(const Path& folder) override;
  Status createFolders(const Path& folder) override;
};

}  // namespace tarvel
