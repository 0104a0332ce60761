#pragma once
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "simulation/ports/SeededRandom.h"

namespace tarvel {

/// A disk in memory that knows what of it is safe against a power cut, and fails when told to. A failing
/// write leaves half of its content behind, as a disk may. Starts with the root folder alone; `clock` stamps
/// what is written.
class MemoryFileSystem : public FileSystem {
 public:
  enum class Operation { read, write, setAttributes, sync, rename, remove, list, createFolders };
  enum class Repeat { once, forEver };
  struct FileState {
    FileKind kind = FileKind::file;
    Bytes content;
    Instant modificationDate;  ///< the reference date for a folder, to keep comparisons to what matters
    std::uint16_t permissions = 0;
    friend bool operator==(const FileState&, const FileState&) = default;
  };
  struct LoggedOperation {
    Operation operation;
    Path path;
    bool failed = false;
  };

  explicit MemoryFileSystem(const Clock& clock);

  Result<Bytes> read(const Path& path) override;
  Status write(const Path& path, ByteView content) override;
  std::optional<FileInfo> info(const Path& path) override;
  Status setAttributes(const Path& path, const FileAttributes& attributes) override;
  Status sync(const Path& path) override;
  Status rename(const Path& from, const Path& to) override;
  Status remove(const Path& path) override;
  Result<std::vector<FolderEntry>> list(const Path& folder) override;
  Status createFolders(const Path& folder) override;

  /// Which operations a failure counts: those of the kind (by default every one that changes the disk or
  /// syncs it) whose path holds the text.
  struct Filter {
    std::optional<Operation> operation;
    std::string pathPart;
  };
  /// Lets the `nth` operation counted from now on fail, 1 being the next; with `forEver` all behind it too,
  /// as when the power went.
  void failOperation(int nth, Repeat repeat = Repeat::once, Filter filter = {},
                     std::string description = "I/O error");
  void clearFailures() { failures_.clear(); }
  void setReadOnly(bool readOnly) { readOnly_ = readOnly; }
  /// Whole seconds to which the disk keeps dates, downwards; 0 for the nanoseconds that it keeps by default.
  void setDateGranularity(std::int64_t seconds) { dateGranularity_ = seconds; }
  /// Bytes of file content that the disk holds in all. A write beyond it fails with what fits left behind.
  void setCapacity(std::optional<std::int64_t> bytes) { capacity_ = bytes; }

  /// Makes all as it stands safe.
  void syncAll();
  /// The power fails: back to what was synced, and nothing of the rest.
  void crash();
  /// The same, but by chance some of what was not synced has reached the disk all the same, also halfway.
  void crash(SeededRandom& random);

  /// All files and folders but the root.
  std::map<Path, FileState> snapshot() const;
  /// A file's content as programs see it, with no regard to failures; null if there is no such file.
  const Bytes* peek(const Path& path) const;
  const std::vector<LoggedOperation>& log() const { return log_; }
  /// For long runs, which would fill the memory with it.
  void stopLogging() { logging_ = false; }
  void clearLog() { log_.clear(); }

 private:
  struct Data {
    Bytes content;
    FileTime modificationTime;
    std::uint16_t permissions = 0644;
  };
  struct Node;
  using NodePtr = std::shared_ptr<Node>;
  using Entries = std::map<std::string, NodePtr>;
  /// A change of a folder that waits for its sync; a rename takes one name away and gives the other in one
  /// step.
  struct EntryChange {
    std::string removed;
    std::string added;
    NodePtr node;
  };
  struct Node {
    FileKind kind = FileKind::file;
    Data data;    ///< as programs see it
    Data synced;  ///< as a power cut leaves it
    Entries entries;
    Entries syncedEntries;
    std::vector<EntryChange> unsyncedChanges;
  };
  struct Failure {
    int countdown;
    Repeat repeat;
    Filter filter;
    std::string description;
  };

  std::optional<Error> begin(Operation operation, const Path& path);
  NodePtr find(const Path& path) const;
  NodePtr findFolderOf(const Path& path) const;
  static void change(Node& folder, EntryChange entryChange);
  static void apply(Entries& entries, const EntryChange& entryChange);
  void fill(Node& file, ByteView content);
  FileTime kept(FileTime time) const;
  static void syncNode(Node& node);
  std::int64_t usedBytes() const;
  void crashNode(Node& node, SeededRandom* random);
  static void forEach(const Node& folder, const Path& path,
                      const std::function<void(const Path&, Node&)>& visit);

  const Clock& clock_;
  NodePtr root_;
  std::vector<Failure> failures_;
  std::vector<LoggedOperation> log_;
  bool logging_ = true;
  bool readOnly_ = false;
  std::int64_t dateGranularity_ = 0;
  std::optional<std::int64_t> capacity_;
};

}  // namespace tarvel
