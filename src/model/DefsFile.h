#pragma once
#include <string>
#include <vector>

#include "platform/Bytes.h"
#include "platform/Color.h"
#include "platform/Instant.h"

namespace tarvel {

/// The content of "defs.b1": the published names and colours of the session kinds, by raw value. A server may
/// list more or fewer than this application knows.
struct DefsFile {
  Instant fileDate;
  std::vector<std::string> names;
  std::vector<Color> colors;
};

/// Throws `DecodeError`; a negative count stops the program.
DefsFile decodeDefsFile(ByteView file);

}  // namespace tarvel
