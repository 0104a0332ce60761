#pragma once
#include <cstdint>

namespace tarvel {

/// The panes of a main window. Persisted by raw value.
enum class MainWindowPane : std::int8_t { info, schedule, notices, photos };

}  // namespace tarvel
