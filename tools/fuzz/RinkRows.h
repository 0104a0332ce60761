#pragma once
#include "model/RinkRecord.h"

namespace tarvel::fuzz {

/// The list as the bytes of "rinks.b1".
Bytes encodeRinks(const RinkListFile& list);

/// Ends the program unless the rows ascend by their ids.
void requireOrder(const RinkListFile& list);

}  // namespace tarvel::fuzz
