#include "ui/WindowController.h"

#include <utility>

namespace tarvel {

WindowController::WindowController(std::unique_ptr<Window> window) : window_(std::move(window)) {
  window_->setDelegate(this);
}

WindowController::~WindowController() {
  window_->setDelegate(nullptr);
  window_->blockSignals(true);
}

void WindowController::showWindow() {
  window_->makeKeyAndOrderFront();
}

}  // namespace tarvel
