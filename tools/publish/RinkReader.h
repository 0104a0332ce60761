#pragma once
#include <optional>
#include <string>

#include "Problems.h"
#include "Records.h"
#include "platform/FileSystem.h"

namespace tarvel::publish {

/// What the catalogue says for all rinks.
struct RinkDefaults {
  std::string serverUrl;
};

/// Reads one rink's folder, `rinkFolder` being its path below `inputFolder`: "rinks/cedar". None if its
/// rink.json can't be read at all; otherwise faults are in `problems` and the record holds what could be
/// read.
std::optional<Rink> readRink(FileSystem& files, const Path& inputFolder, const std::string& rinkFolder,
                             const RinkDefaults& defaults, Problems& problems);

}  // namespace tarvel::publish
