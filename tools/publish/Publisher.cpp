#include "Publisher.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "Manifest.h"
#include "PublishPlan.h"
#include "platform/AtomicFile.h"

namespace tarvel::publish {
namespace {

/// The web server runs as another user.
constexpr std::uint16_t kReadableByAll = 0644;

Instant newDate(Instant now, Instant lastDate) {
  return {std::max(std::floor(now.seconds), std::floor(lastDate.seconds) + 1.0)};
}

}  // namespace

Result<PublishReport> Publisher::publish(const Catalogue& catalogue, Instant now) {
  const Manifest before = Manifest::read(files_, tree_);
  PublishReport report;
  report.date = newDate(now, before.lastDate);
  PublishPlan plan(files_, tree_, before, report.date);
  if (const Status status = plan.add(catalogue); !status) return status.error();
  const std::vector<PlannedFile> planned = std::move(plan).takeFiles();

  Manifest after;
  after.lastDate = before.lastDate;
  for (const PlannedFile& file : planned) {
    after.files[file.path] = file.date;
    if (file.changed) after.lastDate.seconds = std::max(after.lastDate.seconds, file.date.seconds);
  }
  // While the run is on, the manifest vouches for the old files and the new ones, so that none is orphaned by
  // a run that is broken off.
  Manifest during = after;
  during.files.insert(before.files.begin(), before.files.end());
  if (const Status status = files_.createFolders(tree_); !status) return status.error();
  if (const Status status = during.write(files_, tree_); !status) return status.error();

  removeLeftovers(planned);
  if (const Status status = writeChanged(planned, report); !status) return status.error();
  if (const Status status = removeOld(before, after, report); !status) return status.error();
  if (const Status status = after.write(files_, tree_); !status) return status.error();
  return report;
}

Status Publisher::writeChanged(const std::vector<PlannedFile>& planned, PublishReport& report) {
  for (const PlannedFile& file : planned) {
    if (!file.changed) {
      ++report.unchanged;
      continue;
    }
    const Status status = write(file);
    if (!status) return Error{file.path + ": " + status.error().description};
    report.written.push_back(file.path);
  }
  return Done{};
}

Status Publisher::removeOld(const Manifest& before, const Manifest& after, PublishReport& report) {
  for (const auto& [path, date] : before.files) {
    if (after.files.contains(path)) continue;
    if (files_.info(join(tree_, path))) {
      const Status status = files_.remove(join(tree_, path));
      if (!status) return Error{path + ": " + status.error().description};
      report.removed.push_back(path);
    }
    removeEmptyFolders(path);
  }
  return Done{};
}

void Publisher::removeLeftovers(const std::vector<PlannedFile>& planned) {
  std::set<Path> folders;
  for (const PlannedFile& file : planned) folders.insert(parentOf(join(tree_, file.path)));
  for (const Path& folder : folders) removeLeftoverTemporaries(files_, folder);
}

Status Publisher::write(const PlannedFile& file) {
  const Path path = join(tree_, file.path);
  if (Status status = files_.createFolders(parentOf(path)); !status) return status;
  const FileAttributes attributes{file.date, kReadableByAll};
  if (file.source.empty()) return writeAtomically(files_, path, file.content, attributes);
  const auto image = files_.read(file.source);
  if (!image) return image.error();
  return writeAtomically(files_, path, *image, attributes);
}

void Publisher::removeEmptyFolders(const std::string& path) {
  for (std::string folder = path; folder.find('/') != std::string::npos;) {
    folder = folder.substr(0, folder.rfind('/'));
    const auto entries = files_.list(join(tree_, folder));
    if (!entries || !entries->empty() || !files_.remove(join(tree_, folder))) return;
  }
}

}  // namespace tarvel::publish
