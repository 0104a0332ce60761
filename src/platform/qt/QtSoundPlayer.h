#pragma once
#include <QString>
#include <map>
#include <memory>
#include <string>

#include "platform/SoundPlayer.h"

class QAudioDevice;
class QSoundEffect;

namespace tarvel {

/// Plays the sounds of the assets through Qt, on the desktop's output of the moment. The sound system is
/// looked for at the first sound, so that an application that never plays one doesn't wait for it at its
/// start; each sound is loaded once and kept.
class QtSoundPlayer final : public SoundPlayer {
 public:
  QtSoundPlayer();
  ~QtSoundPlayer() override;
  QtSoundPlayer(const QtSoundPlayer&) = delete;
  QtSoundPlayer& operator=(const QtSoundPlayer&) = delete;

  void playSound(std::string_view name) override;

 private:
  QSoundEffect& effect(const std::string& name, const QString& file, const QAudioDevice& output);

  std::map<std::string, std::unique_ptr<QSoundEffect>, std::less<>> effects_;
};

}  // namespace tarvel
