#pragma once

namespace tarvel {

/// Red, green, blue and alpha from 0.0 to 1.0, not premultiplied, in the sRGB space.
struct Color {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
  double alpha = 1.0;
  friend constexpr bool operator==(const Color&, const Color&) = default;
};

/// A grey of the given brightness, 0.0 black to 1.0 white.
constexpr Color white(double brightness, double alpha = 1.0) {
  return {brightness, brightness, brightness, alpha};
}

}  // namespace tarvel
