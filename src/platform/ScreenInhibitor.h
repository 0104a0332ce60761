#pragma once
#include <memory>
#include <string>

namespace tarvel {

/// Keeps the desktop from blanking, dimming or locking the screens. Main thread.
class ScreenInhibitor {
 public:
  /// Lets go when destroyed. The desktop itself lets go when the program dies.
  class Hold {
   public:
    virtual ~Hold() = default;
  };

  virtual ~ScreenInhibitor() = default;
  /// Asks the desktop and returns at once. A desktop that can't, or that refuses, does as it did before, and
  /// nobody hears of it: there may be no desktop at all, and then nothing blanks the screens. Never null.
  virtual std::unique_ptr<Hold> inhibit(const std::string& reason) = 0;
};

}  // namespace tarvel
