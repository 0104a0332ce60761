#pragma once
#include <string>
#include <vector>

#include "platform/SoundPlayer.h"

namespace tarvel {

/// Keeps the names of what was played.
class RecordingSoundPlayer : public SoundPlayer {
 public:
  void playSound(std::string_view name) override { played.emplace_back(name); }

  std::vector<std::string> played;
};

}  // namespace tarvel
