#pragma once

namespace tarvel {

class SoundPlayer;

/// The module's one function, by the name under which it is looked up: makes a player that belongs to the
/// caller. The module is a library of its own, loaded at the first sound, since the sound system brings more
/// libraries along than all the rest of the application.
inline constexpr const char* kMakeSoundPlayer = "tarvelMakeSoundPlayer";
using MakeSoundPlayer = SoundPlayer* (*)();

}  // namespace tarvel
