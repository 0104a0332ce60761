#pragma once
#include <optional>

namespace tarvel {

/// Turns the movements of a finger into the amounts of a page turn: -1 for a whole page to the left (toward
/// the next one), 1 for one to the right. Locks to a direction first: a finger that scrolls up or down turns
/// no page. Clamps the amount to the side that the finger went to first, and dampens it where there is no
/// page on that side: the page gives way, and less and less so. A plain value.
class SwipeTracker {
 public:
  /// Movements in logical pixels that decide the direction, and the part of a page, or the speed in pages a
  /// second, from which letting go turns the page.
  static constexpr double kLockDistance = 8.0;
  static constexpr double kTurnAmount = 0.4;
  static constexpr double kTurnSpeed = 1.0;
  /// How hard a page without a neighbour is to move: of one width of the finger's way a third is left.
  static constexpr double kDamping = 2.0;

  enum class Direction { undecided, horizontal, vertical };

  /// A finger has come down on a page of that width. Amounts below `least` (-1, or 0 without a next page) and
  /// above `most` (1, or 0 without a previous page) are dampened.
  void begin(double pageWidth, double least, double most);
  /// The finger has moved by so much since the last call, `seconds` ago; gives the amount, or none while the
  /// direction isn't horizontal.
  std::optional<double> move(double dx, double dy, double seconds);
  /// The finger is up: where the page shall glide to, -1, 0 or 1.
  double end() const;

  Direction direction() const { return direction_; }
  double amount() const;

 private:
  double pageWidth_ = 1.0;
  double least_ = 0.0;
  double most_ = 0.0;
  double x_ = 0.0;
  double side_ = 0.0;  ///< -1 or 1: where the finger went first
  double y_ = 0.0;
  double speed_ = 0.0;  ///< pages a second
  Direction direction_ = Direction::undecided;
};

}  // namespace tarvel
