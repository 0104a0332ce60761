#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Bytes.h"
#include "platform/Instant.h"
#include "platform/Result.h"

namespace tarvel {

/// An absolute path, its parts divided by '/', with none at the end.
using Path = std::string;

enum class FileKind { file, folder, other };

struct FileInfo {
  FileKind kind = FileKind::file;
  std::int64_t size = 0;  ///< bytes; 0 for a folder
  Instant modificationDate;
};

struct FolderEntry {
  std::string name;  ///< the last part of the path alone
  FileKind kind = FileKind::file;
};

/// What to change of a file beside its content; an empty member is left as it is.
struct FileAttributes {
  std::optional<Instant> modificationDate;
  std::optional<std::uint16_t> permissions;  ///< POSIX mode bits, 0o777 at most
};

/// The disk. Every call is synchronous and reads the disk afresh; nothing is cached. Callable from any
/// thread. Links are followed by `read` and `info` and never by `write` and `remove`; `list` calls them
/// `other`.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  virtual Result<Bytes> read(const Path& path) = 0;
  /// Makes or replaces the file's content. Not atomic, not synced: an interruption leaves any part of it.
  virtual Status write(const Path& path, ByteView content) = 0;
  /// None if there is nothing at the path, or it can't be told.
  virtual std::optional<FileInfo> info(const Path& path) = 0;
  virtual Status setAttributes(const Path& path, const FileAttributes& attributes) = 0;
  /// Returns when the file's content, or the folder's list of entries, is safe against a power cut.
  virtual Status sync(const Path& path) = 0;
  /// Moves a file within its folder, replacing a file of the new name in one step: a reader sees the old or
  /// the new.
  virtual Status rename(const Path& from, const Path& to) = 0;
  /// Removes a file, or a folder with all that is in it. Nothing at the path is an error.
  virtual Status remove(const Path& path) = 0;
  /// The folder's entries in ascending order of name, "." and ".." left out.
  virtual Result<std::vector<FolderEntry>> list(const Path& folder) = 0;
  /// Makes the folder and all missing ones above it; an existing folder is fine.
  virtual Status createFolders(const Path& folder) = 0;
};

/// `folder` and `name` joined by '/'.
Path join(const Path& folder, std::string_view name);
/// The part behind the last '/'.
std::string fileNameOf(const Path& path);
/// The part before the last '/'.
Path parentOf(const Path& path);
/// The name less its last extension: "a.b1" gives "a", "a" gives "a", ".a" gives ".a".
std::string withoutExtension(std::string_view fileName);
/// The last extension without its dot, empty if there is none.
std::string extensionOf(std::string_view fileName);
/// The folder's entries less those whose name begins with a dot.
Result<std::vector<FolderEntry>> listVisible(FileSystem& files, const Path& folder);

}  // namespace tarvel
