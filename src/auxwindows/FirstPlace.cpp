#include "auxwindows/FirstPlace.h"

namespace tarvel {

void placeInMiddle(Window& window, Size size) {
  const Rect area = window.visibleFrame();
  window.setFrame({area.x + (area.width - size.width) / 2, area.y + (area.height - size.height) / 2,
                   size.width, size.height});
}

}  // namespace tarvel
