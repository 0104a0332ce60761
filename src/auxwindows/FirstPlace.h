#pragma once
#include "ui/Window.h"

namespace tarvel {

/// Gives a new window its size, in the middle of its screen: where it stands until it has a place of its own
/// that is kept.
void placeInMiddle(Window& window, Size size);

}  // namespace tarvel
