#pragma once
#include <QPointer>
#include <QWidget>

#include "foundation/NotificationCenter.h"
#include "ui/ScrollTarget.h"

class QScrollArea;
class QScrollBar;
class QVariantAnimation;

namespace tarvel {

enum class Animate { no, yes };

/// A view that can ask the scroll area around it to bring a band of its height into sight. Main thread.
class ScrollableView : public QWidget {
  Q_OBJECT
 public:
  static constexpr int kScrollMilliseconds = 1000;

  /// The centre outlives the view.
  explicit ScrollableView(NotificationCenter& notifications, QWidget* parent = nullptr);
  ~ScrollableView() override;

  /// Scrolls, animated, when the main loop is idle. Of several requests before that the last one counts.
  void scrollTo(double y, double height);
  /// Scrolls now. An animated scroll has begun when this returns, and ends with the next scroll or when the
  /// user takes hold of the scroll bar. Does nothing without a scroll area around the view.
  void scrollTo(Animate animate, double y, double height);

 protected:
  NotificationCenter& notifications() const { return notifications_; }
  /// The nearest scroll area above the view, or null.
  QScrollArea* enclosingScrollArea() const;
  /// The band of the view that the scroll area shows. Without one, all of the view.
  Band visibleBand() const;

  /// Leaves the scroll area where it is.
  bool focusNextPrevChild(bool next) override;

 private:
  void performScroll();
  void moveBar(QScrollBar& bar, double by);
  void animateBar(QScrollBar& bar, double by);

  NotificationCenter& notifications_;
  Observation scrollObservation_;
  double scrollToY_ = 0.0;
  double scrollToHeight_ = 0.0;
  bool isAwaitingScroll_ = false;
  QVariantAnimation* animation_;  ///< a child
  QPointer<QScrollBar> animatedBar_;
};

}  // namespace tarvel
