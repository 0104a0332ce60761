#pragma once
#include "platform/ScreenInhibitor.h"

namespace tarvel {

/// Asks the desktop's screen saver over the session bus, and where there is none its portal. It waits for
/// neither.
class DBusScreenInhibitor final : public ScreenInhibitor {
 public:
  std::unique_ptr<Hold> inhibit(const std::string& reason) override;
};

}  // namespace tarvel
