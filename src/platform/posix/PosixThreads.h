#pragma once
#include "platform/Threads.h"

namespace tarvel {

/// Threads of the system, each with a loop of its own.
class PosixThreads : public Threads {
 public:
  std::unique_ptr<LoopThread> start(std::string name, std::function<void(RunLoop&)> main,
                                    std::function<bool()> keepRunning) override;
  /// The system shows the first 15 bytes.
  void nameCurrentThread(const std::string& name) override;
};

}  // namespace tarvel
