#pragma once

namespace tarvel {

/// A window that may sound a chime when sessions change. Of several of them, the one in front speaks for all.
class ChimingWindow {
 public:
  virtual ~ChimingWindow() = default;
  /// Whether the user has switched this window's chime on.
  virtual bool wantsChime() const = 0;
};

/// Whether no other window in front of this one chimes. A window that isn't on the screen speaks if none that
/// is does. Main thread.
bool isFrontmostChime(const ChimingWindow& window);

}  // namespace tarvel
