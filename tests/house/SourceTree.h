#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace tarvel::house {

/// One source file, its lines without their ends.
struct SourceFile {
  std::string path;  ///< relative to the tree's root, such as "src/model/Venue.h"
  std::vector<std::string> lines;

  bool isHeader() const { return path.ends_with(".h"); }
};

/// A file as the rules are told of it in their own tests.
SourceFile fileOf(std::string path, std::string_view text);

/// All C++ files below the folders of the tree, in ascending order of path.
std::vector<SourceFile> readSourceTree(const std::string& root, const std::vector<std::string>& folders);

}  // namespace tarvel::house
