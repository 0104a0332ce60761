#pragma once
#include <QPixmap>
#include <QWidget>

#include "schedule/PagePlaces.h"

namespace tarvel {

class PagedView;

/// Pictures of the three pages, moved and faded during a turn. A child of the paging view, in front of the
/// pages. The pictures are of the band that is in sight, so that pages taller than the window cost no more.
class PageTurnView : public QWidget {
  Q_OBJECT
 public:
  explicit PageTurnView(QWidget* parent);

  /// Takes the pictures of the pages as they are, of `band` in their coordinates, and shows itself there.
  void begin(PagedView& previous, PagedView& current, PagedView& next, const QRect& band);
  void setPlaces(const PagePlaces& places);
  void end();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap previous_;
  QPixmap current_;
  QPixmap next_;
  PagePlaces places_;
};

}  // namespace tarvel
