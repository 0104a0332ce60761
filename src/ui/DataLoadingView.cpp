#include "ui/DataLoadingView.h"

#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "platform/FatalError.h"

namespace tarvel {

DataLoadingView::DataLoadingView(NotificationCenter& notifications, QWidget* parent)
    : ScrollableView(notifications, parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  updateObservation_ =
      notifications.observe(kPerformUpdates, this, [this](const Notification&) { performUpdates(); });
}

DataLoadingView::~DataLoadingView() = default;

bool DataLoadingView::isAwaitingAny() const {
  return isAwaitingData || isAwaitingData2 || isAwaitingFilter || isAwaitingLayout || isAwaitingStatusUpdate;
}

void DataLoadingView::enqueueUpdates() {
  notifications().enqueueNotification({kPerformUpdates, static_cast<const void*>(this), {}});
  isAwaitingUpdates = true;
}

void DataLoadingView::setPresented(bool presented) {
  const bool before = std::exchange(isPresented_, presented);
  if (before || !isPresented()) return;
  if (!isAwaitingAny() || isClosing) return;
  if (!isAwaitingUpdates) enqueueUpdates();
}

void DataLoadingView::needsData() {
  if (isAwaitingData) return;
  if (isPresented() && !isAwaitingUpdates) enqueueUpdates();
  isAwaitingData = true;
  setNeedsDisplay(false);
}

void DataLoadingView::performUpdates() {
  isAwaitingUpdates = false;
  if (isAwaitingData) loadData();
  if (isAwaitingData2) fatalError("no further data stage");
  if (isAwaitingFilter) fatalError("no filter stage");
  if (isAwaitingLayout) fatalError("no layout stage");
  if (isAwaitingStatusUpdate) fatalError("no status stage");
  if (!isAwaitingData && skippedDrawing_) setNeedsDisplay(true);
}

void DataLoadingView::loadData() {
  fatalError("a data-loading view must load its data");
}

void DataLoadingView::setNeedsDisplay(bool needed) {
  if (needed && !isAwaitingAny() && isPresented() && !isClosing) update();
}

DataLoadingView::Canvas DataLoadingView::currentCanvas() const {
  return {size(), window()->size(), mapTo(window(), QPoint(0, 0)), devicePixelRatioF()};
}

void DataLoadingView::showEvent(QShowEvent* event) {
  drawn_ = {};
  ScrollableView::showEvent(event);
}

void DataLoadingView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (isAwaitingAny() || isClosing) return paintStale(painter, event->region());
  if (const Canvas canvas = currentCanvas(); canvas != drawnCanvas_) {
    drawnCanvas_ = canvas;
    drawn_ = {};
  }
  drawn_ += event->region();
  skippedDrawing_ = false;
  const QRect dirty = event->rect();
  painter.fillRect(dirty, backgroundColor());
  draw(painter, {double(dirty.x()), double(dirty.y()), double(dirty.width()), double(dirty.height())});
}

void DataLoadingView::paintStale(QPainter& painter, const QRegion& region) {
  skippedDrawing_ = true;
  const QRegion lost = currentCanvas() == drawnCanvas_ ? region - drawn_ : region;
  for (const QRect& area : lost) painter.fillRect(area, backgroundColor());
}

}  // namespace tarvel
