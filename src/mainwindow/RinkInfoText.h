#pragma once
#include <string>

#include "model/RinkRecord.h"

namespace tarvel {

/// Both texts with the separator between them; one alone where the other is empty.
std::string joinedTexts(const std::string& a, const std::string& b, const std::string& separator);
/// The rink's name, address and telephone as they stand on a letter. What the rink lacks leaves no gap.
std::string rinkInfoText(const RinkRecord& rink);

/// Whether the rink has a website to visit, and a place that a map can show.
bool hasWebsite(const RinkRecord& rink);
bool hasLocation(const RinkRecord& rink);

}  // namespace tarvel
