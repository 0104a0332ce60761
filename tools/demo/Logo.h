#pragma once
#include <QImage>

#include "DemoRinks.h"

namespace tarvel::demo {

enum class Appearance { light, dark };

/// A rink's mark on a transparent square of `side` pixels, in colours that stand out on a background of the
/// appearance. `hue` in degrees.
QImage logoImage(LogoMark mark, int hue, Appearance appearance, int side);

}  // namespace tarvel::demo
