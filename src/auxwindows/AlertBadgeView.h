#pragma once
#include <QWidget>

#include "auxwindows/AlertBadge.h"

namespace tarvel {

/// The small symbol over the corner of an alert's icon, on a plate of the panel's background. Main thread.
class AlertBadgeView : public QWidget {
  Q_OBJECT
 public:
  explicit AlertBadgeView(QWidget* parent = nullptr);
  /// `none` draws nothing.
  void setBadge(AlertBadge badge);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  AlertBadge badge_ = AlertBadge::none;
};

}  // namespace tarvel
