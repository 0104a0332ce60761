#pragma once
#include <deque>
#include <functional>
#include <string>

#include "simulation/Alarms.h"
#include "simulation/FaultClasses.h"
#include "simulation/SimServers.h"
#include "simulation/Trace.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"

namespace tarvel::sim {

// Descriptions of failures that are put into the disk, by which they are counted.
inline constexpr const char* kFailsOnce = "I/O error";
inline constexpr const char* kFailsForEver = "Device not responding";
inline constexpr const char* kDatesRefused = "Operation not permitted";

/// Watches what the program does to its disk: that it stays in its store, that a file appears there only
/// whole, with its own date and by way of a temporary one, and which versions of the state file a crash may
/// bring back.
class CheckedDisk : public FileSystem {
 public:
  CheckedDisk(FileSystem& disk, const MemoryFileSystem& memory, const SimServers& servers,
              const SimWorld& world, FaultCounters& counters, Alarms& alarms, Trace& trace);

  Result<Bytes> read(const Path& path) override;
  Status write(const Path& path, ByteView content) override;
  std::optional<FileInfo> info(const Path& path) override { return disk_.info(path); }
  Status setAttributes(const Path& path, const FileAttributes& attributes) override;
  Status sync(const Path& path) override;
  Status rename(const Path& from, const Path& to) override;
  Status remove(const Path& path) override;
  Result<std::vector<FolderEntry>> list(const Path& folder) override;
  Status createFolders(const Path& folder) override;

  /// Looks at everything in the store.
  void checkAllFiles();
  /// The power failed: a state file saved since the last sync of its folder may be the last one now.
  void checkStateFileAfterCrash();
  /// The program begins: the state file is the one saved last.
  void checkStateFile();
  /// The program has begun, and nothing failed meanwhile.
  void checkNoTemporaries();
  std::uint64_t failures() const { return failures_; }
  /// Called when a file has appeared.
  std::function<void(const std::string& key)> appeared;

 private:
  void checkPlace(const Path& path);
  void checkFile(const std::string& key, const Bytes& content, Instant date);
  template <class Outcome>
  Outcome noted(char what, const Path& path, Outcome outcome);
  void count(const std::string& description);
  std::uint64_t stateHash() const;

  FileSystem& disk_;
  const MemoryFileSystem& memory_;
  const SimServers& servers_;
  const SimWorld& world_;
  FaultCounters& counters_;
  Alarms& alarms_;
  Trace& trace_;
  std::uint64_t failures_ = 0;
  std::deque<std::uint64_t> stateVersions_ = {0};  ///< 0 for none; the oldest is what is safe
};

}  // namespace tarvel::sim
