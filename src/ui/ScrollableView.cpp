#include "ui/ScrollableView.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVariantAnimation>
#include <cmath>

namespace tarvel {

ScrollableView::ScrollableView(NotificationCenter& notifications, QWidget* parent)
    : QWidget(parent), notifications_(notifications), animation_(new QVariantAnimation(this)) {
  scrollObservation_ =
      notifications_.observe(kPerformScroll, this, [this](const Notification&) { performScroll(); });
  animation_->setDuration(kScrollMilliseconds);
  animation_->setEasingCurve(QEasingCurve::InOutQuad);
  connect(animation_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    if (animatedBar_) animatedBar_->setValue(value.toInt());
  });
}

ScrollableView::~ScrollableView() = default;

void ScrollableView::scrollTo(double y, double height) {
  scrollToY_ = y;
  scrollToHeight_ = height;
  if (isAwaitingScroll_) return;
  isAwaitingScroll_ = true;
  notifications_.enqueueNotification({kPerformScroll, static_cast<const void*>(this), {}});
}

void ScrollableView::performScroll() {
  scrollTo(Animate::yes, scrollToY_, scrollToHeight_);
  isAwaitingScroll_ = false;
  scrollToY_ = 0.0;
  scrollToHeight_ = 0.0;
}

QScrollArea* ScrollableView::enclosingScrollArea() const {
  for (QWidget* above = parentWidget(); above; above = above->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(above)) return area;
  }
  return nullptr;
}

Band ScrollableView::visibleBand() const {
  QRect visible = rect();
  if (const QScrollArea* area = enclosingScrollArea()) {
    const QWidget* viewport = area->viewport();
    visible &= QRect(mapFrom(viewport, QPoint(0, 0)), viewport->size());
  }
  return {static_cast<double>(visible.y()), static_cast<double>(visible.height())};
}

void ScrollableView::scrollTo(Animate animate, double y, double height) {
  QScrollArea* area = enclosingScrollArea();
  if (!area) return;
  const Band visible = visibleBand();
  const auto target = scrollTarget(visible, this->height(), {y, height});
  if (!target) return;
  animation_->stop();
  const double delta = *target - visible.y;
  QScrollBar& bar = *area->verticalScrollBar();
  if (animate == Animate::no) {
    moveBar(bar, delta);
    return;
  }
  const double jump = scrollJump(delta, visible.height);
  moveBar(bar, jump);
  animateBar(bar, delta - jump);
}

bool ScrollableView::focusNextPrevChild(bool next) {
  const QPointer<QScrollArea> area = enclosingScrollArea();
  if (!area) return QWidget::focusNextPrevChild(next);
  // The area brings what had the focus into sight, and so the middle of a view that is larger than itself:
  // the row or day that was shown would move away.
  const int x = area->horizontalScrollBar()->value();
  const int y = area->verticalScrollBar()->value();
  const bool moved = QWidget::focusNextPrevChild(next);
  if (area) {
    area->horizontalScrollBar()->setValue(x);
    area->verticalScrollBar()->setValue(y);
  }
  return moved;
}

void ScrollableView::moveBar(QScrollBar& bar, double by) {
  bar.setValue(bar.value() + static_cast<int>(std::lround(by)));
}

void ScrollableView::animateBar(QScrollBar& bar, double by) {
  if (animatedBar_ != &bar) {
    if (animatedBar_) animatedBar_->disconnect(animation_);
    animatedBar_ = &bar;
    connect(&bar, &QScrollBar::actionTriggered, animation_, &QVariantAnimation::stop);
  }
  animation_->setStartValue(bar.value());
  animation_->setEndValue(bar.value() + static_cast<int>(std::lround(by)));
  animation_->start();
}

}  // namespace tarvel
