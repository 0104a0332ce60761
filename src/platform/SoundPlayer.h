#pragma once
#include <string_view>

namespace tarvel {

// The application's sounds.
inline constexpr std::string_view kTinkSound = "Tink";              ///< a key that means nothing here
inline constexpr std::string_view kGlassChimeSound = "GlassChime";  ///< a session begins or ends

/// Plays the application's sounds. Main thread.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;
  /// Starts the sound, from its beginning if it sounds already, and returns at once. A machine without sound
  /// stays silent and says nothing of it. A name that none of the sounds has stops the program.
  virtual void playSound(std::string_view name) = 0;
};

}  // namespace tarvel
