#include "auxwindows/ChimingWindow.h"

#include "ui/Window.h"

namespace tarvel {

bool isFrontmostChime(const ChimingWindow& window) {
  for (const Window* other : Window::orderedWindows()) {
    const auto* chiming = dynamic_cast<const ChimingWindow*>(other->delegate());
    if (chiming == &window) return true;
    if (chiming && chiming->wantsChime()) return false;
  }
  return true;
}

}  // namespace tarvel
