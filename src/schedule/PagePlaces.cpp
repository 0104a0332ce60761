#include "schedule/PagePlaces.h"

namespace tarvel {

PagePlaces pagesAtRest(double width) {
  return {{-width, 1.0}, {0.0, 1.0}, {0.0, 0.0}};
}

GestureStep gestureStep(double amount, double width, bool pagesBefore, bool pagesAfter) {
  GestureStep step{pagesAtRest(width), PageTurn::none};
  const bool pageThere = amount < 0 ? pagesAfter : pagesBefore;
  if (!pageThere) {
    step.places.current.x = width * amount;
  } else if (amount <= -1.0) {
    step.turn = PageTurn::toNext;
  } else if (amount >= 1.0) {
    step.turn = PageTurn::toPrevious;
  } else if (amount < 0) {
    step.places.current.x = width * amount;
    step.places.next.alpha = -amount;
  } else if (amount > 0) {
    step.places.previous.x = -(1.0 - amount) * width;
    step.places.current.alpha = 1.0 - amount;
  }
  return step;
}

}  // namespace tarvel
