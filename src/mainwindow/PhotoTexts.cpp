#include "mainwindow/PhotoTexts.h"

#include <fmt/format.h>

namespace tarvel {

std::string missingImageText(const DownloadStatus& status) {
  switch (status.kind) {
    case DownloadStatus::Kind::requested:
      return "Download in progress...";
    case DownloadStatus::Kind::invalidData:
      return "Not a valid image";
    case DownloadStatus::Kind::failed:
      return "Download Failed\n" + status.text;
    case DownloadStatus::Kind::idle:
      break;
  }
  return "No Image";
}

std::string countText(std::size_t count, const std::string& one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

std::string positionText(std::int64_t index, std::size_t count) {
  return fmt::format("{} of {}", index + 1, count);
}

std::string albumTitle(const std::string& title) {
  return title.empty() ? "(Untitled Album)" : title;
}

}  // namespace tarvel
