#pragma once
#include <memory>

#include "platform/SoundPlayer.h"

namespace tarvel {

/// Plays the sounds of the assets on the desktop's output of the moment, through a module that is looked for
/// beside the program at the first sound: an application that never plays one pays nothing for it. Without
/// the module it is as silent as on a machine without sound.
class QtSoundPlayer final : public SoundPlayer {
 public:
  void playSound(std::string_view name) override;
  /// Whether the module could be loaded; loads it.
  bool hasModule();

 private:
  bool lookedFor_ = false;
  std::unique_ptr<SoundPlayer> player_;  ///< the module's; null without one
};

}  // namespace tarvel
