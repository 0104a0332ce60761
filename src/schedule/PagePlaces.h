#pragma once

namespace tarvel {

/// Where a page stands and how much of it shows while the pages turn.
struct PagePlace {
  double x = 0.0;      ///< in logical pixels from the paging view's left
  double alpha = 1.0;  ///< 0 not seen, 1 opaque
  friend bool operator==(const PagePlace&, const PagePlace&) = default;
};

struct PagePlaces {
  PagePlace previous;
  PagePlace current;
  PagePlace next;
  friend bool operator==(const PagePlaces&, const PagePlaces&) = default;
};

enum class PageTurn { none, toNext, toPrevious };

struct GestureStep {
  PagePlaces places;
  PageTurn turn = PageTurn::none;  ///< the pages have been turned far enough
};

/// The pages at rest: the previous one waits at the left, the next one lies unseen under the current one.
PagePlaces pagesAtRest(double width);

/// The pages at a swipe of `amount`, from -1 (the next page) to 1 (the previous one). Toward the next page
/// the current one slides off to the left and uncovers it; toward the previous page that one slides in over
/// the current one. Without a page on that side the current one follows the finger and doesn't turn.
GestureStep gestureStep(double amount, double width, bool pagesBefore, bool pagesAfter);

}  // namespace tarvel
