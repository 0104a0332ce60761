#include "platform/posix/PosixFileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <system_error>

#include "platform/posix/FileDescriptor.h"

namespace tarvel {

namespace {

constexpr std::size_t kReadChunk = 64 << 10;
constexpr mode_t kNewFileMode = 0666;  // less the user's mask
constexpr mode_t kNewFolderMode = 0777;

Error errorOf(int number) {
  return {std::generic_category().message(number)};
}
Error lastError() {
  return errorOf(errno);
}

Status statusOf(int result) {
  return result == -1 ? Status(lastError()) : Status(Done{});
}

FileDescriptor open(int folder, const char* name, int flags, mode_t mode = 0) {
  return FileDescriptor(retryingInterrupted([&] { return ::openat(folder, name, flags | O_CLOEXEC, mode); }));
}

FileDescriptor open(const Path& path, int flags, mode_t mode = 0) {
  return open(AT_FDCWD, path.c_str(), flags, mode);
}

FileKind kindOf(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::file;
  return S_ISDIR(mode) ? FileKind::folder : FileKind::other;
}

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The entries of an open folder in the disk's order. The kind of one that goes meanwhile is `other`.
Result<std::vector<FolderEntry>> entriesOf(FileDescriptor folder) {
  const std::unique_ptr<DIR, FolderCloser> stream(folder.valid() ? ::fdopendir(folder.number()) : nullptr);
  if (!stream) return lastError();
  const int number = folder.release();  // the stream's from here on
  std::vector<FolderEntry> entries;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(stream.get());
    if (!entry) break;
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    struct stat status {};
    const bool known = ::fstatat(number, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    entries.push_back({name, known ? kindOf(status.st_mode) : FileKind::other});
  }
  if (errno != 0) return lastError();
  return entries;
}

/// Removes the entry of an open folder. A link goes, never what it leads to: folders are entered through
/// their open parents, and not through links.
Status removeAt(int parent, const char* name) {
  if (::unlinkat(parent, name, 0) == 0) return Done{};
  const int unlinkError = errno;
  struct stat status {};
  if (::fstatat(parent, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return lastError();
  if (!S_ISDIR(status.st_mode)) return errorOf(unlinkError);

  const FileDescriptor folder = open(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  if (!folder.valid()) return lastError();
  const auto entries = entriesOf(open(folder.number(), ".", O_RDONLY | O_DIRECTORY));
  if (!entries) return entries.error();
  for (const FolderEntry& entry : *entries) {
    if (Status removed = removeAt(folder.number(), entry.name.c_str()); !removed) return removed;
  }
  return statusOf(::unlinkat(parent, name, AT_REMOVEDIR));
}

}  // namespace

Result<Bytes> PosixFileSystem::read(const Path& path) {
  // Without O_NONBLOCK, opening a pipe that nobody writes would hang.
  const FileDescriptor file = open(path, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (!file.valid() || ::fstat(file.number(), &status) != 0) return lastError();
  if (!S_ISREG(status.st_mode)) return errorOf(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  // Room for the size that was told and a byte more, so that the end is found without growing.
  Bytes content(static_cast<std::size_t>(status.st_size) + 1);
  std::size_t length = 0;
  for (;;) {
    if (length == content.size()) content.resize(length + kReadChunk);
    const ssize_t count = retryingInterrupted(
        [&] { return ::read(file.number(), content.data() + length, content.size() - length); });
    if (count == -1) return lastError();
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  content.resize(length);
  return content;
}

Status PosixFileSystem::write(const Path& path, ByteView content) {
  // A link may lead out of the folder that the caller means, and a pipe that nobody reads would hang.
  FileDescriptor file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK, kNewFileMode);
  if (!file.valid()) return lastError();
  while (!content.empty()) {
    const ssize_t count =
        retryingInterrupted([&] { return ::write(file.number(), content.data(), content.size()); });
    if (count == -1) return lastError();
    content = content.subspan(static_cast<std::size_t>(count));
  }
  // Some disks only tell at the close that there was no room. An interrupted close has closed.
  if (::close(file.release()) == -1 && errno != EINTR) return lastError();
  return Done{};
}

std::optional<FileInfo> PosixFileSystem::info(const Path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  const FileKind kind = kindOf(status.st_mode);
  return FileInfo{kind, kind == FileKind::folder ? 0 : status.st_size,
                  instantOf({status.st_mtim.tv_sec, status.st_mtim.tv_nsec})};
}

Status PosixFileSystem::setAttributes(const Path& path, const FileAttributes& attributes) {
  if (attributes.modificationDate) {
    const FileTime time = fileTimeOf(*attributes.modificationDate);
    const timespec times[] = {{0, UTIME_OMIT}, {time.seconds, time.nanoseconds}};
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) return lastError();
  }
  if (attributes.permissions && ::chmod(path.c_str(), *attributes.permissions) != 0) return lastError();
  return Done{};
}

Status PosixFileSystem::sync(const Path& path) {
  FileDescriptor file = open(path, O_RDONLY | O_NONBLOCK);
  if (!file.valid() && errno == EACCES) file = open(path, O_WRONLY | O_NONBLOCK);
  if (!file.valid()) return lastError();
  if (retryingInterrupted([&] { return ::fsync(file.number()); }) == 0) return Done{};
  return lastError();
}

Status PosixFileSystem::rename(const Path& from, const Path& to) {
  return statusOf(::rename(from.c_str(), to.c_str()));
}

Status PosixFileSystem::remove(const Path& path) {
  return removeAt(AT_FDCWD, path.c_str());
}

Result<std::vector<FolderEntry>> PosixFileSystem::list(const Path& folder) {
  auto entries = entriesOf(open(folder, O_RDONLY | O_DIRECTORY));
  if (!entries) return entries;
  std::vector<FolderEntry> sorted = std::move(entries).value();
  std::sort(sorted.begin(), sorted.end(),
            [](const FolderEntry& left, const FolderEntry& right) { return left.name < right.name; });
  return sorted;
}

Status PosixFileSystem::createFolders(const Path& folder) {
  if (::mkdir(folder.c_str(), kNewFolderMode) == 0) return Done{};
  if (errno == ENOENT && parentOf(folder) != folder) {
    if (Status above = createFolders(parentOf(folder)); !above) return above;
    if (::mkdir(folder.c_str(), kNewFolderMode) == 0) return Done{};
  }
  const int mkdirError = errno;
  const auto existing = info(folder);
  if (!existing) return errorOf(mkdirError);
  return existing->kind == FileKind::folder ? Status(Done{}) : Status(errorOf(ENOTDIR));
}

}  // namespace tarvel
