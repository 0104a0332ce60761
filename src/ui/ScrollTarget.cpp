#include "ui/ScrollTarget.h"

#include <algorithm>
#include <cmath>

namespace tarvel {

namespace {
constexpr double kLongestAnimatedScreens = 1.5;
}

std::optional<double> scrollTarget(Band visible, double viewHeight, Band band) {
  const bool below = visible.y + visible.height < band.y + band.height;
  if (visible.y <= band.y && !below) return std::nullopt;
  const bool alignBottoms = below && visible.height > band.height;
  double target = alignBottoms ? band.y + band.height - visible.height : band.y;
  target = target < 0.0 ? 0.0 : std::min(target, viewHeight - visible.height);
  if (target == visible.y) return std::nullopt;
  return target;
}

double scrollJump(double delta, double visibleHeight) {
  const double longest = kLongestAnimatedScreens * visibleHeight;
  return std::abs(delta) > longest ? std::copysign(std::abs(delta) - longest, delta) : 0.0;
}

}  // namespace tarvel
