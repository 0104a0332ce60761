#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "SourceTree.h"

namespace tarvel::house {

/// One breach: "src/model/Venue.h:12: reason".
using Findings = std::vector<std::string>;

/// Includes of a room that may know nothing of the included one.
Findings includesAgainstTheArrows(const SourceFile& file);
/// Includes of the toolkit where it isn't known.
Findings toolkitInTheCore(const SourceFile& file);
/// The machine's clock, disk, network, environment and randomness, outside the rooms that put them behind
/// ports.
Findings bypassedPorts(const SourceFile& file);
/// A header that may be read twice.
Findings headerWithoutGuard(const SourceFile& file);
/// Notes to oneself that outlived the work.
Findings leftoverNotes(const SourceFile& file);

Findings longFile(const SourceFile& file, std::size_t most);
/// Goes by the layout that the formatter gives: a function's last brace stands in the column of its first
/// line.
Findings longFunctions(const SourceFile& file, std::size_t most);

}  // namespace tarvel::house
