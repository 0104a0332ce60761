#pragma once
#include <map>
#include <string>

#include "platform/FileSystem.h"
#include "platform/Instant.h"

namespace tarvel::publish {

/// What a publisher has put into a tree: each file's path below the tree's top with its date, and the latest
/// date ever given out there. It lies in the tree as ".tarvel-publish.json". By it, the next run keeps the
/// dates of unchanged images (which carry none themselves), never gives a date twice, and removes nothing
/// that it did not write.
struct Manifest {
  std::map<std::string, Instant> files;
  Instant lastDate;

  /// Of a missing or unreadable manifest, an empty one: then nothing is removed, and images get new dates.
  static Manifest read(FileSystem& files, const Path& tree);
  Status write(FileSystem& files, const Path& tree) const;
};

/// True for a path that a publisher may have written: safe parts, and "b1", "png" or "jpg" for an extension.
bool isPublishedPath(const std::string& relativePath);

}  // namespace tarvel::publish
