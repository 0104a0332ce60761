#pragma once
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tarvel {

/// A folder on the real disk that goes with its holder.
class TempFolder {
 public:
  TempFolder() {
    path_ = (std::filesystem::temp_directory_path() / "tarvel-test-XXXXXX").string();
    if (!::mkdtemp(path_.data())) throw std::runtime_error("no temporary folder");
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tarvel
