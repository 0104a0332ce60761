#pragma once
#include <string>

namespace tarvel {

/// The state of one file's fetch.
struct DownloadStatus {
  enum class Kind {
    idle,         ///< nothing is known to be wrong
    requested,    ///< a download is under way
    invalidData,  ///< found bad; not asked for again in this run
    failed,       ///< the download failed; the next refresh tries again
  };
  Kind kind = Kind::idle;
  std::string text;  ///< of `failed`: the description for the user

  static DownloadStatus idle() { return {}; }
  static DownloadStatus requested() { return {Kind::requested, {}}; }
  static DownloadStatus failed(std::string text) { return {Kind::failed, std::move(text)}; }
  friend bool operator==(const DownloadStatus&, const DownloadStatus&) = default;
};

}  // namespace tarvel
