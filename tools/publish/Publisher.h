#pragma once
#include <string>
#include <vector>

#include "Records.h"
#include "platform/FileSystem.h"
#include "platform/Instant.h"

namespace tarvel::publish {

struct Manifest;
struct PlannedFile;

struct PublishReport {
  Instant date;                      ///< what new and changed files got
  std::vector<std::string> written;  ///< paths below the tree's top, in the order of writing
  std::vector<std::string> removed;
  std::size_t unchanged = 0;
};

/// Brings a tree of files, as a web server hands them out, up to what the records say.
///
/// A file whose content is the same keeps its date and isn't touched. All others get one new date, whole
/// seconds, later than any date that was ever given out in this tree, even if the clock was set back. Each
/// file is replaced in one step and after everything whose date it promises; what is no longer published goes
/// last. A run that is broken off leaves a tree that readers can use, and the next run completes it. Only one
/// run may be at work in a tree at a time.
class Publisher {
 public:
  /// `tree` need not exist yet.
  Publisher(FileSystem& files, Path tree) : files_(files), tree_(std::move(tree)) {}

  /// Fails when something can't be read, written or removed; the error names it.
  Result<PublishReport> publish(const Catalogue& catalogue, Instant now);

 private:
  /// Of a run that was broken off.
  void removeLeftovers(const std::vector<PlannedFile>& planned);
  Status writeChanged(const std::vector<PlannedFile>& planned, PublishReport& report);
  Status removeOld(const Manifest& before, const Manifest& after, PublishReport& report);
  Status write(const PlannedFile& file);
  void removeEmptyFolders(const std::string& path);

  FileSystem& files_;
  Path tree_;
};

}  // namespace tarvel::publish
