#pragma once
#include <cstdint>

namespace tarvel {

/// The two forms of a schedule. Persisted by raw value.
enum class ScheduleViewOption : std::int8_t { weekly, daily };

}  // namespace tarvel
