#include "simulation/CheckedDisk.h"

#include <algorithm>

#include "simulation/StoredFiles.h"

namespace tarvel::sim {

namespace {

bool isTemporary(const std::string& name) {
  return name.starts_with('.') && name.ends_with(".part");
}

Path statePath() {
  return join(kStore, kStateFileName);
}

}  // namespace

CheckedDisk::CheckedDisk(FileSystem& disk, const MemoryFileSystem& memory, const SimServers& servers,
                         const SimWorld& world, FaultCounters& counters, Alarms& alarms, Trace& trace)
    : disk_(disk),
      memory_(memory),
      servers_(servers),
      world_(world),
      counters_(counters),
      alarms_(alarms),
      trace_(trace) {}

void CheckedDisk::count(const std::string& description) {
  if (description == kFailsOnce) {
    counters_.add(FaultClass::failsOnce);
  } else if (description == kFailsForEver) {
    counters_.add(FaultClass::failsForEver);
  } else if (description == kDatesRefused) {
    counters_.add(FaultClass::datesRefused);
  } else if (description == std::make_error_code(std::errc::no_space_on_device).message()) {
    counters_.add(FaultClass::full);
  } else if (description == std::make_error_code(std::errc::read_only_file_system).message()) {
    counters_.add(FaultClass::readOnly);
  } else {
    return;  // an answer such as "no such file" is no fault
  }
  ++failures_;
}

template <class Outcome>
Outcome CheckedDisk::noted(char what, const Path& path, Outcome outcome) {
  trace_.add(what, path, world_.seconds(), outcome ? 0 : 1);
  if (!outcome) count(outcome.error().description);
  return outcome;
}

void CheckedDisk::checkPlace(const Path& path) {
  if (path != kStore && !path.starts_with(kStore + "/")) alarms_.ring(Alarm::outsideTheStore, path);
}

Result<Bytes> CheckedDisk::read(const Path& path) {
  return noted('R', path, disk_.read(path));
}

Status CheckedDisk::write(const Path& path, ByteView content) {
  checkPlace(path);
  if (!isTemporary(fileNameOf(path))) alarms_.ring(Alarm::outsideTheStore, path + " is written in place");
  return noted('W', path, disk_.write(path, content));
}

Status CheckedDisk::setAttributes(const Path& path, const FileAttributes& attributes) {
  checkPlace(path);
  return noted('A', path, disk_.setAttributes(path, attributes));
}

Status CheckedDisk::sync(const Path& path) {
  Status synced = noted('S', path, disk_.sync(path));
  if (synced && path == kStore) stateVersions_.erase(stateVersions_.begin(), stateVersions_.end() - 1);
  return synced;
}

Status CheckedDisk::rename(const Path& from, const Path& to) {
  checkPlace(to);
  Status renamed = noted('M', to, disk_.rename(from, to));
  if (!renamed) return renamed;
  const std::string key = keyOfPath(to).value_or("");
  const Bytes* const content = memory_.peek(to);
  const auto info = disk_.info(to);
  if (!content || !info) {
    alarms_.ring(Alarm::tornFile, to + " has not appeared");
  } else if (key == kStateFileName) {
    stateVersions_.push_back(hashOf(*content));
  } else {
    checkFile(key, *content, info->modificationDate);
    if (appeared) appeared(key);
  }
  return renamed;
}

Status CheckedDisk::remove(const Path& path) {
  checkPlace(path);
  return noted('D', path, disk_.remove(path));
}

Result<std::vector<FolderEntry>> CheckedDisk::list(const Path& folder) {
  return noted('L', folder, disk_.list(folder));
}

Status CheckedDisk::createFolders(const Path& folder) {
  checkPlace(folder);
  return noted('F', folder, disk_.createFolders(folder));
}

void CheckedDisk::checkFile(const std::string& key, const Bytes& content, Instant date) {
  if (key == kLogFileName || key == kStateFileName) return;
  const std::uint64_t hash = hashOf(content);
  const bool published = servers_.wasPublished(key, hash);
  const auto misled = [&] {
    return servers_.alteredKeys().contains("rinks.b1") && servers_.wasGivenOut(hash);
  };
  if (!published && !servers_.wasAltered(key, hash) && !misled()) return alarms_.ring(Alarm::tornFile, key);
  if (!published && readingOf(key, content) != Reading::good)
    return alarms_.ring(Alarm::undecodableFile, key);
  if (isImage(key)) return;
  const auto own = ownDate(key, content);
  if (!own) return alarms_.ring(Alarm::tornFile, key + " is too short");
  // A disk with coarse dates keeps the seconds before.
  constexpr double kCoarsest = 2.0;
  const bool exact = instantOf(fileTimeOf(*own)) == date;
  const double off = *own - date;
  const bool coarse = counters_.of(FaultClass::coarseDates) > 0 && off >= 0.0 && off < kCoarsest;
  if (!exact && !coarse) return alarms_.ring(Alarm::tornFile, key + " has another file's date");
}

void CheckedDisk::checkAllFiles() {
  for (const auto& [path, state] : memory_.snapshot()) {
    const auto key = keyOfPath(path);
    if (state.kind != FileKind::file || isTemporary(fileNameOf(path))) continue;
    if (!key) {
      alarms_.ring(Alarm::outsideTheStore, path);
    } else {
      checkFile(*key, state.content, state.modificationDate);
    }
  }
}

std::uint64_t CheckedDisk::stateHash() const {
  const Bytes* const content = memory_.peek(statePath());
  return content ? hashOf(*content) : 0;
}

void CheckedDisk::checkStateFileAfterCrash() {
  const std::uint64_t hash = stateHash();
  if (std::find(stateVersions_.begin(), stateVersions_.end(), hash) == stateVersions_.end())
    alarms_.ring(Alarm::stateFile, hash == 0 ? "is gone after a crash" : "is another one after a crash");
  stateVersions_ = {hash};
}

void CheckedDisk::checkStateFile() {
  if (stateHash() != stateVersions_.back()) alarms_.ring(Alarm::stateFile, "at a start");
}

void CheckedDisk::checkNoTemporaries() {
  for (const auto& [path, state] : memory_.snapshot()) {
    if (state.kind == FileKind::file && isTemporary(fileNameOf(path)))
      alarms_.ring(Alarm::temporaryOutlives, path);
  }
}

}  // namespace tarvel::sim
