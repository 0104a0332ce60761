#pragma once
#include <QWidget>

#include "foundation/InstanceCounter.h"
#include "platform/Geometry.h"
#include "schedule/ScheduleMetrics.h"

namespace tarvel {

/// The measures of a time marker.
struct TimeMarkerShape {
  double lineWidth = kTimeMarkerLine;
  double markerWidth = kTimeMarkerWidth;  ///< of a pointer, outside the column
  double markerHeight = kTimeMarkerHeight;
};

/// The translucent bar that shows the present moment, with a pointer at each end that lies outside the
/// column. A child of a schedule page, which places it; so a minute passes without the page being drawn
/// again. It takes no mouse events.
class TimeMarkerView : public QWidget, Counted<TimeMarkerView> {
  Q_OBJECT
 public:
  using Counted<TimeMarkerView>::liveCount;

  /// `width` is the column's.
  TimeMarkerView(double width, QWidget* parent, const TimeMarkerShape& shape = {});
  /// In the parent's coordinates. The bar lies there to the fraction of a pixel.
  void setMarkerRect(const Rect& rect);
  const Rect& markerRect() const { return rect_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TimeMarkerShape shape_;
  Rect rect_;
};

}  // namespace tarvel
