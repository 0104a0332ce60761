#pragma once
#include <QImage>
#include <cstdint>

namespace tarvel::demo {

/// What a drawn photo shows.
enum class Scene { building, hall, plan, resurfacer, skater, skates, puck, pond };

/// The scene, in colours around `hue` (degrees) and with details that `seed` varies; its longer side has
/// `longSide` pixels.
QImage sceneImage(Scene scene, int hue, std::uint64_t seed, int longSide);

}  // namespace tarvel::demo
