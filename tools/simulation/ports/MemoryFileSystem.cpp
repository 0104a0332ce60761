#include "simulation/ports/MemoryFileSystem.h"

#include <algorithm>
#include <system_error>

namespace tarvel {

namespace {

Error errorOf(std::errc code) {
  return {std::make_error_code(code).message()};
}

bool changesDisk(MemoryFileSystem::Operation operation) {
  return operation != MemoryFileSystem::Operation::read && operation != MemoryFileSystem::Operation::list;
}

}  // namespace

MemoryFileSystem::MemoryFileSystem(const Clock& clock) : clock_(clock), root_(std::make_shared<Node>()) {
  root_->kind = FileKind::folder;
}

std::optional<Error> MemoryFileSystem::begin(Operation operation, const Path& path) {
  std::optional<Error> error;
  for (Failure& failure : failures_) {
    const auto kind = failure.filter.operation;
    if (kind ? *kind != operation : !changesDisk(operation)) continue;
    if (path.find(failure.filter.pathPart) == Path::npos) continue;
    if (failure.countdown > 0) --failure.countdown;
    if (failure.countdown == 0 && !error) error = Error{failure.description};
  }
  std::erase_if(failures_, [](const Failure& f) { return f.countdown == 0 && f.repeat == Repeat::once; });
  if (!error && readOnly_ && changesDisk(operation) && operation != Operation::sync) {
    error = errorOf(std::errc::read_only_file_system);
  }
  if (logging_) log_.push_back({operation, path, error.has_value()});
  return error;
}

MemoryFileSystem::NodePtr MemoryFileSystem::find(const Path& path) const {
  NodePtr node = root_;
  std::size_t start = 1;
  while (start < path.size() && node) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const auto found = node->entries.find(path.substr(start, end - start));
    node = found == node->entries.end() ? nullptr : found->second;
    start = end + 1;
  }
  return node;
}

MemoryFileSystem::NodePtr MemoryFileSystem::findFolderOf(const Path& path) const {
  const NodePtr folder = find(parentOf(path));
  return folder && folder->kind == FileKind::folder && !fileNameOf(path).empty() ? folder : nullptr;
}

void MemoryFileSystem::apply(Entries& entries, const EntryChange& entryChange) {
  if (!entryChange.removed.empty()) entries.erase(entryChange.removed);
  if (entryChange.node) entries[entryChange.added] = entryChange.node;
}

void MemoryFileSystem::change(Node& folder, EntryChange entryChange) {
  apply(folder.entries, entryChange);
  folder.unsyncedChanges.push_back(std::move(entryChange));
}

void MemoryFileSystem::fill(Node& file, ByteView content) {
  file.data.content.assign(content.begin(), content.end());
  file.data.modificationTime = kept(fileTimeOf(clock_.now()));
}

FileTime MemoryFileSystem::kept(FileTime time) const {
  if (dateGranularity_ == 0) return time;
  const std::int64_t beyond = (time.seconds % dateGranularity_ + dateGranularity_) % dateGranularity_;
  return {time.seconds - beyond, 0};
}

const Bytes* MemoryFileSystem::peek(const Path& path) const {
  const NodePtr file = find(path);
  return file && file->kind == FileKind::file ? &file->data.content : nullptr;
}

Result<Bytes> MemoryFileSystem::read(const Path& path) {
  if (const auto error = begin(Operation::read, path)) return *error;
  const NodePtr file = find(path);
  if (!file) return errorOf(std::errc::no_such_file_or_directory);
  if (file->kind != FileKind::file) return errorOf(std::errc::is_a_directory);
  return file->data.content;
}

Status MemoryFileSystem::write(const Path& path, ByteView content) {
  const auto error = begin(Operation::write, path);
  const NodePtr folder = findFolderOf(path);
  if (!folder) return error.value_or(errorOf(std::errc::no_such_file_or_directory));
  NodePtr file = find(path);
  if (file && file->kind != FileKind::file) return error.value_or(errorOf(std::errc::is_a_directory));
  if (error && readOnly_) return *error;
  if (!file) {
    file = std::make_shared<Node>();
    change(*folder, {{}, fileNameOf(path), file});
  }
  fill(*file, {});
  const std::int64_t room = capacity_ ? std::max<std::int64_t>(0, *capacity_ - usedBytes()) : INT64_MAX;
  const bool fits = static_cast<std::int64_t>(content.size()) <= room;
  fill(*file, error  ? content.first(content.size() / 2)
              : fits ? content
                     : content.first(static_cast<std::size_t>(room)));
  if (error) return *error;
  return fits ? Status(Done{}) : Status(errorOf(std::errc::no_space_on_device));
}

std::optional<FileInfo> MemoryFileSystem::info(const Path& path) {
  const NodePtr node = find(path);
  if (!node) return std::nullopt;
  return FileInfo{node->kind, static_cast<std::int64_t>(node->data.content.size()),
                  instantOf(node->data.modificationTime)};
}

Status MemoryFileSystem::setAttributes(const Path& path, const FileAttributes& attributes) {
  if (const auto error = begin(Operation::setAttributes, path)) return *error;
  const NodePtr node = find(path);
  if (!node) return errorOf(std::errc::no_such_file_or_directory);
  if (attributes.modificationDate)
    node->data.modificationTime = kept(fileTimeOf(*attributes.modificationDate));
  if (attributes.permissions) node->data.permissions = *attributes.permissions;
  return Done{};
}

void MemoryFileSystem::syncNode(Node& node) {
  node.synced = node.data;
  node.syncedEntries = node.entries;
  node.unsyncedChanges.clear();
}

Status MemoryFileSystem::sync(const Path& path) {
  if (const auto error = begin(Operation::sync, path)) return *error;
  const NodePtr node = find(path);
  if (!node) return errorOf(std::errc::no_such_file_or_directory);
  syncNode(*node);
  return Done{};
}

Status MemoryFileSystem::rename(const Path& from, const Path& to) {
  if (const auto error = begin(Operation::rename, from)) return *error;
  const NodePtr node = find(from);
  const NodePtr folder = findFolderOf(from);
  if (!node || !folder) return errorOf(std::errc::no_such_file_or_directory);
  if (parentOf(from) != parentOf(to)) return errorOf(std::errc::cross_device_link);
  const NodePtr replaced = find(to);
  if (replaced && replaced->kind == FileKind::folder) return errorOf(std::errc::is_a_directory);
  if (from != to) change(*folder, {fileNameOf(from), fileNameOf(to), node});
  return Done{};
}

Status MemoryFileSystem::remove(const Path& path) {
  if (const auto error = begin(Operation::remove, path)) return *error;
  const NodePtr folder = findFolderOf(path);
  if (!folder || !find(path)) return errorOf(std::errc::no_such_file_or_directory);
  change(*folder, {fileNameOf(path), {}, nullptr});
  return Done{};
}

Result<std::vector<FolderEntry>> MemoryFileSystem::list(const Path& folder) {
  if (const auto error = begin(Operation::list, folder)) return *error;
  const NodePtr node = find(folder);
  if (!node) return errorOf(std::errc::no_such_file_or_directory);
  if (node->kind != FileKind::folder) return errorOf(std::errc::not_a_directory);
  std::vector<FolderEntry> entries;
  for (const auto& [name, entry] : node->entries) entries.push_back({name, entry->kind});
  return entries;
}

Status MemoryFileSystem::createFolders(const Path& folder) {
  if (const auto error = begin(Operation::createFolders, folder)) return *error;
  for (std::size_t end = 0; end < folder.size();) {
    end = std::min(folder.find('/', end + 1), folder.size());
    const Path path = folder.substr(0, end);
    const NodePtr existing = find(path);
    if (existing && existing->kind != FileKind::folder) return errorOf(std::errc::not_a_directory);
    if (existing) continue;
    const auto node = std::make_shared<Node>();
    node->kind = FileKind::folder;
    change(*findFolderOf(path), {{}, fileNameOf(path), node});
  }
  return Done{};
}

void MemoryFileSystem::failOperation(int nth, Repeat repeat, Filter filter, std::string description) {
  failures_.push_back({nth, repeat, std::move(filter), std::move(description)});
}

void MemoryFileSystem::forEach(const Node& folder, const Path& path,
                               const std::function<void(const Path&, Node&)>& visit) {
  for (const auto& [name, node] : folder.entries) {
    visit(join(path, name), *node);
    forEach(*node, join(path, name), visit);
  }
}

std::int64_t MemoryFileSystem::usedBytes() const {
  std::int64_t used = 0;
  forEach(*root_, "/",
          [&](const Path&, Node& node) { used += static_cast<std::int64_t>(node.data.content.size()); });
  return used;
}

std::map<Path, MemoryFileSystem::FileState> MemoryFileSystem::snapshot() const {
  std::map<Path, FileState> states;
  forEach(*root_, "/", [&](const Path& path, Node& node) {
    if (node.kind == FileKind::folder) {
      states[path] = {FileKind::folder, {}, {}, 0};
    } else {
      states[path] = {node.kind, node.data.content, instantOf(node.data.modificationTime),
                      node.data.permissions};
    }
  });
  return states;
}

void MemoryFileSystem::syncAll() {
  syncNode(*root_);
  forEach(*root_, "/", [&](const Path&, Node& node) { syncNode(node); });
}

void MemoryFileSystem::crash() {
  crashNode(*root_, nullptr);
}

void MemoryFileSystem::crash(SeededRandom& random) {
  crashNode(*root_, &random);
}

void MemoryFileSystem::crashNode(Node& node, SeededRandom* random) {
  node.entries = node.syncedEntries;
  if (random) {
    for (const EntryChange& entryChange : node.unsyncedChanges) {
      if (random->chance(0.5)) apply(node.entries, entryChange);
    }
    Data survived = random->chance(0.5) ? node.data : node.synced;  // the attributes
    switch (random->below(3)) {
      case 0:
        survived.content = node.synced.content;
        break;
      case 1:
        survived.content = node.data.content;
        break;
      default:
        if (node.data.content != node.synced.content && !node.data.content.empty()) {
          survived.content = node.data.content;
          survived.content.resize(random->below(survived.content.size() + 1));
        }
    }
    node.synced = survived;
  }
  node.data = node.synced;
  node.syncedEntries = node.entries;
  node.unsyncedChanges.clear();
  for (const auto& [name, entry] : node.entries) crashNode(*entry, random);
}

}  // namespace tarvel
