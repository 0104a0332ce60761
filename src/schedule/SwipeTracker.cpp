#include "schedule/SwipeTracker.h"

#include <algorithm>
#include <cmath>

namespace tarvel {

namespace {
constexpr double kSpeedSmoothing = 0.6;  // the part of the newest movement in the speed
}

void SwipeTracker::begin(double pageWidth, double least, double most) {
  *this = SwipeTracker();
  pageWidth_ = std::max(1.0, pageWidth);
  least_ = least;
  most_ = most;
}

std::optional<double> SwipeTracker::move(double dx, double dy, double seconds) {
  x_ += dx;
  y_ += dy;
  if (direction_ == Direction::undecided && std::hypot(x_, y_) >= kLockDistance) {
    direction_ = std::abs(x_) > std::abs(y_) ? Direction::horizontal : Direction::vertical;
    side_ = x_ < 0 ? -1.0 : 1.0;
  }
  if (direction_ != Direction::horizontal) return std::nullopt;
  if (seconds > 0) {
    const double speed = dx / pageWidth_ / seconds;
    speed_ = speed_ * (1.0 - kSpeedSmoothing) + speed * kSpeedSmoothing;
  }
  return amount();
}

double SwipeTracker::amount() const {
  const double way = std::max(0.0, x_ * side_ / pageWidth_);  // in pages, to the side of the first movement
  const double limit = side_ < 0 ? -least_ : most_;
  const double beyond = std::max(0.0, way - limit);
  return side_ *
         std::min(1.0, std::min(way, limit) + (limit < 1.0 ? beyond / (1.0 + kDamping * beyond) : 0.0));
}

double SwipeTracker::end() const {
  if (direction_ != Direction::horizontal) return 0.0;
  if (side_ < 0 ? least_ == 0.0 : most_ == 0.0) return 0.0;
  const double reached = amount();
  const bool far = std::abs(reached) >= kTurnAmount;
  // A flick turns the page too, but not one back against the way the page has gone.
  const bool flicked = std::abs(speed_) >= kTurnSpeed && speed_ * reached > 0;
  if (!far && !flicked) return 0.0;
  return reached < 0 ? -1.0 : 1.0;
}

}  // namespace tarvel
