#pragma once
#include <cstdint>

namespace tarvel {

/// How a Today window looks, whatever the desktop says. Persisted by raw value.
enum class ColorMode : std::int8_t { light, dark, useSystemPref };

}  // namespace tarvel
