#pragma once
#include <string>
#include <vector>

#include "Manifest.h"
#include "Records.h"
#include "platform/Bytes.h"
#include "platform/FileSystem.h"
#include "platform/Instant.h"

namespace tarvel::publish {

/// The order of writing: whatever promises a file's date comes after it, so that a reader in the middle of it
/// never sees a promise of something that isn't there yet.
enum class Step { image, leaf, list, main, master, catalogue, root };

struct PlannedFile {
  Step step = Step::leaf;
  std::string path;  ///< below the tree's top
  Instant date;
  bool changed = false;
  Bytes content;  ///< of an image, empty: it is read again from `source` when it is written
  Path source;
};

/// Works out from the records and from what lies in the tree already which files there have to be, which of
/// them change, and the date of each. Reads, and writes nothing.
class PublishPlan {
 public:
  /// A changed file gets `date`, or a later one if it has had that date before.
  PublishPlan(FileSystem& files, Path tree, const Manifest& manifest, Instant date);

  /// Fails if a source image can no longer be read.
  Status add(const Catalogue& catalogue);
  /// In the order of writing.
  std::vector<PlannedFile> takeFiles() &&;

 private:
  Status addRink(const Rink& rink);
  Status addCatalogue(const Catalogue& catalogue);
  Result<Instant> addImage(const std::string& path, const ImageFile& image);
  Instant addDated(Step step, const std::string& path, const Bytes& body);
  void addIndex(Step step, const std::string& path, Bytes content);
  Instant dateAfter(Instant earlier) const;

  FileSystem& files_;
  Path tree_;
  const Manifest& manifest_;
  Instant date_;
  std::vector<PlannedFile> planned_;
};

}  // namespace tarvel::publish
