#include "SourceTree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tarvel::house {

SourceFile fileOf(std::string path, std::string_view text) {
  SourceFile file{std::move(path), {}};
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) file.lines.push_back(line);
  return file;
}

std::vector<SourceFile> readSourceTree(const std::string& root, const std::vector<std::string>& folders) {
  namespace fs = std::filesystem;
  std::vector<SourceFile> files;
  for (const std::string& folder : folders) {
    const fs::path start = fs::path(root) / folder;
    if (!fs::exists(start)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(start)) {
      const std::string extension = entry.path().extension();
      if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
      std::ifstream stream(entry.path());
      const std::string text{std::istreambuf_iterator<char>(stream), {}};
      files.push_back(fileOf(fs::relative(entry.path(), root), text));
    }
  }
  std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
  return files;
}

}  // namespace tarvel::house
