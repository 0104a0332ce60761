#pragma once
#include <algorithm>

namespace tarvel {

/// Sizes and places in logical pixels (1 pixel is 1 point at scale 1). Which way y grows is said where they
/// are used.
struct Size {
  double width = 0.0;
  double height = 0.0;
  friend constexpr bool operator==(const Size&, const Size&) = default;
};

struct Point {
  double x = 0.0;
  double y = 0.0;
  friend constexpr bool operator==(const Point&, const Point&) = default;
};

struct Rect {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;

  constexpr double maxX() const { return x + width; }
  constexpr double maxY() const { return y + height; }
  constexpr bool empty() const { return width <= 0.0 || height <= 0.0; }
  constexpr bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
  /// Rectangles that only touch don't intersect.
  constexpr bool intersects(const Rect& other) const {
    return x < other.maxX() && other.x < maxX() && y < other.maxY() && other.y < maxY();
  }
  /// Smaller by `dx` at the left and right and by `dy` at the top and bottom; larger when they are negative.
  constexpr Rect inset(double dx, double dy) const {
    return {x + dx, y + dy, width - 2 * dx, height - 2 * dy};
  }
  friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tarvel
