#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

/// A library that is loaded before any other (LD_PRELOAD), counts a program's calls to the disk below one
/// folder, and disturbs them: kills the program before one of them, or has them fail. What it does comes from
/// the environment:
///
///   TARVEL_FAULTS_ROOT    the folder, absolute; without it nothing is disturbed
///   TARVEL_FAULTS_TRACE   a file outside of the folder, to which a line is added for each call
///   TARVEL_FAULTS_KILL    number of the call, from 1, before which the program is killed
///   TARVEL_FAULTS_TEAR    if set: where that call writes, half of it is written first
///   TARVEL_FAULTS_CHANGES if set: only calls that change the disk are counted and disturbed
///   TARVEL_FAULTS_FAIL    errno with which calls fail, as a number; of the kinds that fail so on a disk
///   TARVEL_FAULTS_FROM    first call that fails, from 1
///   TARVEL_FAULTS_TO      last call that fails; none for all
///   TARVEL_FAULTS_CLUMSY  if set: each write is interrupted first, and then writes half
///
/// Calls are made to the kernel itself, so it doesn't matter which library asked for them. A folder's listing
/// counts by its opening alone.

namespace {

enum class Kind { look, read, create, write, sync, rename, remove, attributes };
constexpr std::array<const char*, 8> kKindNames = {"look", "read",   "create", "write",
                                                   "sync", "rename", "remove", "attributes"};

const char* variable(const char* name) {
  return std::getenv(name);
}
long numberOf(const char* name, long otherwise) {
  const char* const text = variable(name);
  return text ? std::strtol(text, nullptr, 10) : otherwise;
}

struct Plan {
  std::string root = variable("TARVEL_FAULTS_ROOT") ? variable("TARVEL_FAULTS_ROOT") : "";
  int trace = -1;
  long kill = numberOf("TARVEL_FAULTS_KILL", 0);
  bool tear = variable("TARVEL_FAULTS_TEAR") != nullptr;
  bool changesOnly = variable("TARVEL_FAULTS_CHANGES") != nullptr;
  int fail = static_cast<int>(numberOf("TARVEL_FAULTS_FAIL", 0));
  long from = numberOf("TARVEL_FAULTS_FROM", 1);
  long to = numberOf("TARVEL_FAULTS_TO", LONG_MAX);
  bool clumsy = variable("TARVEL_FAULTS_CLUMSY") != nullptr;
  std::atomic<long> calls{0};
  std::atomic<bool> interruptNext{true};

  Plan() {
    if (const char* const path = variable("TARVEL_FAULTS_TRACE")) {
      constexpr mode_t kMode = 0600;
      trace = static_cast<int>(
          ::syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kMode));
    }
  }
};

Plan& plan() {
  static Plan made;
  return made;
}

/// The path behind a number; empty for what is none of a file.
std::string pathOf(int number) {
  std::array<char, PATH_MAX> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(number);
  const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
  return length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : std::string();
}

std::string pathOf(int folder, const char* path) {
  if (path[0] == '/' || folder == AT_FDCWD) return path;
  return pathOf(folder) + "/" + path;
}

bool concerns(std::string_view path) {
  const std::string& root = plan().root;
  return !root.empty() && path.starts_with(root) && (path.size() == root.size() || path[root.size()] == '/');
}

/// Whether a disk with that trouble fails at calls of that kind.
bool fails(int error, Kind kind) {
  switch (error) {
    case ENOSPC:
      return kind == Kind::create || kind == Kind::write || kind == Kind::sync;
    case EROFS:
      return kind == Kind::create || kind == Kind::rename || kind == Kind::remove || kind == Kind::attributes;
    default:
      return true;
  }
}

[[noreturn]] void die() {
  ::syscall(SYS_kill, ::getpid(), SIGKILL);
  for (;;) ::pause();
}

/// Counts the call; true if it has to fail, with errno set. `tear` runs before the program is killed.
template <class Tear>
bool disturb(Kind kind, const std::string& path, Tear tear) {
  if (!concerns(path)) return false;
  Plan& p = plan();
  if (p.changesOnly && (kind == Kind::look || kind == Kind::read)) return false;
  const long call = ++p.calls;
  if (p.trace >= 0) {
    const std::string line =
        std::to_string(call) + " " + kKindNames[static_cast<std::size_t>(kind)] + " " + path + "\n";
    ::syscall(SYS_write, p.trace, line.data(), line.size());
  }
  if (call == p.kill) {
    if (p.tear) tear();
    die();
  }
  if (p.fail == 0 || call < p.from || call > p.to || !fails(p.fail, kind)) return false;
  errno = p.fail;
  return true;
}

bool disturb(Kind kind, const std::string& path) {
  return disturb(kind, path, [] {});
}

int openDisturbed(int folder, const char* path, int flags, mode_t mode) {
  const bool writes = (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
  if (disturb(writes ? Kind::create : Kind::look, pathOf(folder, path))) return -1;
  return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

mode_t modeOf(int flags, va_list arguments) {
  return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

int removeDisturbed(int folder, const char* path, int flags) {
  if (disturb(Kind::remove, pathOf(folder, path))) return -1;
  return static_cast<int>(::syscall(SYS_unlinkat, folder, path, flags));
}

int statusDisturbed(int folder, const char* path, void* status, int flags) {
  if (disturb(Kind::look, pathOf(folder, path))) return -1;
  return static_cast<int>(::syscall(SYS_newfstatat, folder, path, status, flags));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openDisturbed(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openDisturbed(AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openDisturbed(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  return openDisturbed(folder, path, flags, mode);
}

ssize_t read(int number, void* data, size_t length) {
  if (disturb(Kind::read, pathOf(number))) return -1;
  return ::syscall(SYS_read, number, data, length);
}

ssize_t write(int number, const void* data, size_t length) {
  const std::string path = pathOf(number);
  if (disturb(Kind::write, path, [&] { ::syscall(SYS_write, number, data, length / 2); })) return -1;
  if (plan().clumsy && concerns(path)) {
    if (plan().interruptNext.exchange(!plan().interruptNext)) {
      errno = EINTR;
      return -1;
    }
    length = (length + 1) / 2;
  }
  return ::syscall(SYS_write, number, data, length);
}

int fsync(int number) {
  if (disturb(Kind::sync, pathOf(number))) return -1;
  return static_cast<int>(::syscall(SYS_fsync, number));
}

int rename(const char* from, const char* to) noexcept {
  if (disturb(Kind::rename, to)) return -1;
  return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int unlink(const char* path) noexcept {
  return removeDisturbed(AT_FDCWD, path, 0);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return removeDisturbed(folder, path, flags);
}
int rmdir(const char* path) noexcept {
  return removeDisturbed(AT_FDCWD, path, AT_REMOVEDIR);
}

int mkdir(const char* path, mode_t mode) noexcept {
  if (disturb(Kind::create, path)) return -1;
  return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int utimensat(int folder, const char* path, const struct timespec* times, int flags) noexcept {
  if (disturb(Kind::attributes, pathOf(folder, path))) return -1;
  return static_cast<int>(::syscall(SYS_utimensat, folder, path, times, flags));
}

int chmod(const char* path, mode_t mode) noexcept {
  if (disturb(Kind::attributes, path)) return -1;
  return static_cast<int>(::syscall(SYS_fchmodat, AT_FDCWD, path, mode));
}

int stat(const char* path, struct stat* status) noexcept {
  return statusDisturbed(AT_FDCWD, path, status, 0);
}
int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  return statusDisturbed(folder, path, status, flags);
}

}  // extern "C"
