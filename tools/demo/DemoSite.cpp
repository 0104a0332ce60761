#include "DemoSite.h"

#include <utility>

#include "InputWriter.h"
#include "publish/Encoders.h"
#include "publish/Manifest.h"
#include "publish/PublishInput.h"

namespace tarvel::demo {

DemoSite::DemoSite(FileSystem& files, const Clock& clock, Path tree)
    : files_(files), clock_(clock), tree_(std::move(tree)) {}

Result<publish::PublishReport> DemoSite::publish(const DemoContent& content) {
  const Path inputFolder = join(tree_, ".input");
  if (const Status status = writeInput(files_, inputFolder, content); !status) return status.error();
  const publish::PublishInput input = publish::readPublishInput(files_, inputFolder);
  if (!input.problems.errors.empty()) return Error{publish::describe(input.problems.errors.front())};
  Snapshot before = snapshot(content);
  auto report = publish::Publisher(files_, tree_).publish(input.catalogue, clock_.now());
  if (!report) return report;
  const std::lock_guard lock(mutex_);
  for (const std::string& path : report->written) {
    if (const auto old = before.find(path); old != before.end()) previous_[path] = std::move(old->second);
  }
  return report;
}

DemoSite::Snapshot DemoSite::snapshot(const DemoContent& content) const {
  Snapshot result;
  const auto take = [&](const std::string& path) {
    if (auto bytes = files_.read(join(tree_, path))) result[path] = std::move(bytes).value();
  };
  for (const char* name : {"root.b1", "defs.b1", "rinks.b1"}) take(name);
  for (const DemoRink& rink : content.rinks()) {
    const std::string folder = "rinks/" + rink.folder + "/";
    for (const char* name : {"master.b1", "main.b1", "notices.b1", "photoCollection.b1"}) take(folder + name);
    for (const DemoVenue& venue : rink.venues) {
      take(folder + publish::schedulesName(venue.venueID));
      for (const PackedDate weekOf : content.weeks()) take(folder + publish::weekName(venue.venueID, weekOf));
    }
  }
  return result;
}

std::optional<Bytes> DemoSite::file(const std::string& urlPath) const {
  const std::string path = urlPath.substr(urlPath.empty() ? 0 : 1);
  if (!urlPath.starts_with('/') || !publish::isPublishedPath(path)) return std::nullopt;
  auto content = files_.read(join(tree_, path));
  if (!content) return std::nullopt;
  return std::move(content).value();
}

std::optional<Bytes> DemoSite::previousFile(const std::string& urlPath) const {
  auto present = file(urlPath);
  if (!present) return present;
  const std::lock_guard lock(mutex_);
  const auto old = previous_.find(urlPath.substr(1));
  return old == previous_.end() ? present : old->second;
}

}  // namespace tarvel::demo
