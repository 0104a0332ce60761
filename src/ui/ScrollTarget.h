#pragma once
#include <optional>

namespace tarvel {

/// A band of a view's height; y downwards.
struct Band {
  double y = 0.0;
  double height = 0.0;
};

/// Where the visible part of a view of height `viewHeight` must begin so that the band can be seen: its top
/// where the band is taller than what is visible or lies above it, its bottom where it lies below. Never
/// above the view or beyond its end. None if nothing has to move.
std::optional<double> scrollTarget(Band visible, double viewHeight, Band band);

/// How much of an animated scroll by `delta` is jumped at once, so that the rest is at most one and a half
/// times the visible height; of the sign of `delta`.
double scrollJump(double delta, double visibleHeight);

}  // namespace tarvel
