#pragma once
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "DemoContent.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "publish/Publisher.h"

namespace tarvel::demo {

/// The published tree: brings it up to the content, and hands out its files, also as they were before.
/// `publish` has one caller at a time; the rest can be called from any thread.
class DemoSite {
 public:
  /// The descriptions go into the hidden folder ".input" of the tree.
  DemoSite(FileSystem& files, const Clock& clock, Path tree);

  /// Writes the descriptions and publishes them. Fails when the disk does.
  Result<publish::PublishReport> publish(const DemoContent& content);
  /// The file at a URL's path, "/root.b1"; none if nothing is published there.
  std::optional<Bytes> file(const std::string& urlPath) const;
  /// As it was before the last publishing that changed it; the present file if none did.
  std::optional<Bytes> previousFile(const std::string& urlPath) const;

 private:
  using Snapshot = std::map<std::string, Bytes>;
  /// The present content of every file of the kind that promises dates, by its path.
  Snapshot snapshot(const DemoContent& content) const;

  FileSystem& files_;
  const Clock& clock_;
  Path tree_;
  mutable std::mutex mutex_;  ///< for `previous_`
  Snapshot previous_;
};

}  // namespace tarvel::demo
