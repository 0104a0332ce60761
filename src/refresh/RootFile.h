#pragma once
#include <optional>
#include <string>
#include <vector>

#include "foundation/CalendarDates.h"
#include "foundation/PackedVersion.h"
#include "platform/Bytes.h"
#include "platform/Instant.h"

namespace tarvel {

/// A row of the index: when a master file last changed.
struct MasterFileInfo {
  std::string relPath;
  Instant modDate;
};

/// A release of the application.
struct Release {
  PackedDate date = kNoDate;
  PackedVersion appVersion = 0;
  PackedVersion osMinimumVersion = 0;
  std::string url;
};

/// The content of "root.b1", the master server's index. Older servers leave out the releases or the beta.
struct RootFile {
  PackedVersion currentVersion = 0;
  PackedVersion minimumVersion = 0;  ///< the oldest application that can read the published data
  std::string applicationWebsiteURL;
  std::vector<MasterFileInfo> files;
  std::vector<Release> releases;  ///< oldest first
  std::optional<Release> beta;
};

/// Throws `DecodeError`; a negative count stops the program.
RootFile decodeRootFile(ByteView file);

/// The content of a rink's "master.b1": the name and date of its main file.
struct MasterFile {
  std::string mainFileName;
  Instant mainFileDate;
};

/// Throws `DecodeError`.
MasterFile decodeMasterFile(ByteView file);

}  // namespace tarvel
