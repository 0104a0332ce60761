#pragma once
#include "foundation/DataDecoder.h"
#include "platform/Instant.h"

namespace tarvel {

/// Reads the date that a file has or must have. Throws `DecodeError` for what no file system can hold: no
/// number, or a date before 1970 or after 2254.
Instant getFileDate(DataDecoder& decoder);

}  // namespace tarvel
