#include "foundation/AutoSaveController.h"

#include <algorithm>

namespace tarvel {

AutoSaveController::AutoSaveController(RunLoop& mainLoop, AutoSaveDelegate& delegate, std::string name)
    : mainLoop_(mainLoop),
      delegate_(delegate),
      name_(std::move(name)),
      self_(std::make_shared<AutoSaveController*>(this)) {}

AutoSaveController::~AutoSaveController() {
  *self_ = nullptr;
}

void AutoSaveController::changed() {
  mainLoop_.post([self = self_] {
    if (*self != nullptr) (*self)->changedOnMainThread();
  });
}

void AutoSaveController::finish() {
  finished_ = true;
  autoSaveTimer_.reset();
}

void AutoSaveController::changedOnMainThread() {
  if (finished_) return;
  if (!autoSaveTimer_) {
    startTimer();
    return;
  }
  const double secondsLeft = autoSaveTimer_->secondsUntilFire();
  if (secondsLeft < minimumInterval || secondsLeft < decayingInterval_ * 0.25) {
    decayingInterval_ = std::max(decayingInterval_ * 0.5, minimumInterval);
    autoSaveTimer_->fireAfter(decayingInterval_);
  }
}

void AutoSaveController::startTimer() {
  autoSaveTimer_.reset();
  autoSaveTimer_ = mainLoop_.after(normalInterval, [this] { fire(); });
  decayingInterval_ = normalInterval;
}

void AutoSaveController::fire() {
  const auto self = self_;  // the delegate may let the controller go while it saves
  delegate_.autoSave();
  if (*self != nullptr) autoSaveTimer_.reset();
}

}  // namespace tarvel
