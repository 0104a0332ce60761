#include "schedule/PageTurnView.h"

#include <QPainter>

#include "schedule/PagedView.h"
#include "ui/NamedColors.h"

namespace tarvel {

namespace {

void paintPage(QPainter& painter, const QPixmap& picture, const PagePlace& place) {
  if (picture.isNull() || place.alpha <= 0.0) return;
  painter.setOpacity(place.alpha);
  painter.drawPixmap(QPointF(place.x, 0.0), picture);
}

}  // namespace

PageTurnView::PageTurnView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void PageTurnView::begin(PagedView& previous, PagedView& current, PagedView& next, const QRect& band) {
  previous_ = previous.grab(band);
  current_ = current.grab(band);
  next_ = next.grab(band);
  setGeometry(band);
  raise();
  show();
}

void PageTurnView::setPlaces(const PagePlaces& places) {
  places_ = places;
  update();
}

void PageTurnView::end() {
  hide();
  previous_ = current_ = next_ = QPixmap();
}

void PageTurnView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), color(kContentBackground2, this));
  paintPage(painter, next_, places_.next);
  paintPage(painter, current_, places_.current);
  paintPage(painter, previous_, places_.previous);
}

}  // namespace tarvel
