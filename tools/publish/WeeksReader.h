#pragma once
#include <optional>
#include <string_view>

#include "InputFolder.h"
#include "Records.h"

namespace tarvel::publish {

/// A date that is a Sunday.
std::optional<PackedDate> parseSunday(std::string_view text);

/// Reads all "weeks/*.json" of the rink into `rink.weeks`; the venues must have been read. Sessions that
/// overlap in one venue are noted as warnings: halves of a sheet are let apart at times.
void readWeeks(const InputFolder& folder, Rink& rink);

}  // namespace tarvel::publish
