#pragma once
#include <cstdint>
#include <vector>

#include "DemoContent.h"

namespace tarvel::demo {

/// The notices a rink begins with, newest first, dated from two weeks before today to today; some rinks have
/// none.
std::vector<DemoNotice> firstNotices(const DemoRink& rink, std::uint64_t seed, PackedDate today);

}  // namespace tarvel::demo
