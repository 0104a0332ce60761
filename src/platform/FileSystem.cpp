#include "platform/FileSystem.h"

namespace tarvel {

Path join(const Path& folder, std::string_view name) {
  Path path = folder;
  if (!path.ends_with('/')) path += '/';
  return path += name;
}

std::string fileNameOf(const Path& path) {
  return path.substr(path.rfind('/') + 1);
}

Path parentOf(const Path& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == Path::npos) return {};
  return slash == 0 ? "/" : path.substr(0, slash);
}

namespace {

/// Where the last extension's dot stands; none for a dot at the very front or end, which divides nothing.
std::size_t extensionDot(std::string_view fileName) {
  const std::size_t dot = fileName.rfind('.');
  return dot == 0 || dot == fileName.size() - 1 ? std::string_view::npos : dot;
}

}  // namespace

std::string withoutExtension(std::string_view fileName) {
  return std::string(fileName.substr(0, extensionDot(fileName)));
}

std::string extensionOf(std::string_view fileName) {
  const std::size_t dot = extensionDot(fileName);
  return dot == std::string_view::npos ? std::string() : std::string(fileName.substr(dot + 1));
}

Result<std::vector<FolderEntry>> listVisible(FileSystem& files, const Path& folder) {
  Result<std::vector<FolderEntry>> entries = files.list(folder);
  if (!entries) return entries;
  std::vector<FolderEntry> visible = std::move(entries).value();
  std::erase_if(visible, [](const FolderEntry& entry) { return entry.name.starts_with('.'); });
  return visible;
}

}  // namespace tarvel
