#pragma once
#include <cstdint>

namespace tarvel {

/// The span of days that is chosen with a date. A year is chosen month by month.
enum class PeriodViewOption : std::int8_t { day, week, month, year };

}  // namespace tarvel
