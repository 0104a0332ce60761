#pragma once
#include <string>
#include <vector>

#include "platform/Geometry.h"

namespace tarvel {

/// A screen that a kiosk window may take.
struct KioskScreen {
  std::string name;  ///< of its connector: the same when the screen goes and comes back
  Rect frame;        ///< in the toolkit's coordinates
  bool isMain = false;
  friend bool operator==(const KioskScreen&, const KioskScreen&) = default;
};

/// In the order in which kiosk windows take them: from the right to the left, and the main one last.
std::vector<KioskScreen> inKioskOrder(std::vector<KioskScreen> screens);
/// The screens that exist now. Main thread.
std::vector<KioskScreen> kioskScreens();

}  // namespace tarvel
