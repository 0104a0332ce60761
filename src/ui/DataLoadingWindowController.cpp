#include "ui/DataLoadingWindowController.h"

#include <utility>

#include "platform/FatalError.h"

namespace tarvel {

DataLoadingWindowController::DataLoadingWindowController(std::unique_ptr<Window> window,
                                                         NotificationCenter& notifications)
    : WindowController(std::move(window)), notifications_(notifications) {
  updateObservation_ =
      notifications_.observe(kPerformUpdates, this, [this](const Notification&) { performUpdates(); });
}

DataLoadingWindowController::~DataLoadingWindowController() = default;

void DataLoadingWindowController::needsData() {
  if (isAwaitingData || isClosing) return;
  if (!isAwaitingUpdates) {
    notifications_.enqueueNotification({kPerformUpdates, static_cast<const void*>(this), {}});
    isAwaitingUpdates = true;
  }
  isAwaitingData = true;
}

void DataLoadingWindowController::performUpdates() {
  isAwaitingUpdates = false;
  if (isAwaitingData) loadData();
  if (isAwaitingData2) fatalError("no further data stage");
  if (isAwaitingFilter) fatalError("no filter stage");
}

void DataLoadingWindowController::loadData() {
  fatalError("a data-loading window controller must load its data");
}

}  // namespace tarvel
