#include "ui/BoxView.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/PixelBox.h"

namespace tarvel {

BoxView::BoxView(QWidget* parent) : QWidget(parent) {}

void BoxView::setBgColor(std::optional<ColorSource> color) {
  if (color == bgColor_) return;
  bgColor_ = std::move(color);
  noteOpacity();
  update();
}

void BoxView::setFrameColor(std::optional<ColorSource> color) {
  if (color == frameColor_) return;
  frameColor_ = std::move(color);
  update();
}

void BoxView::setBoxEdges(std::optional<BoxEdges> edges) {
  if (edges == boxEdges_) return;
  boxEdges_ = edges;
  update();
}

void BoxView::setLineWidth(double width) {
  if (width == lineWidth_) return;
  lineWidth_ = width;
  update();
}

void BoxView::setCornerRadius(std::optional<double> radius) {
  if (radius == cornerRadius_) return;
  cornerRadius_ = radius;
  noteOpacity();
  update();
}

void BoxView::setAllowFirstResponder(bool allow) {
  setFocusPolicy(allow ? Qt::StrongFocus : Qt::NoFocus);
}

void BoxView::noteOpacity() {
  // What the toolkit holds for opaque it doesn't clear, so a box with open corners or a translucent colour is
  // none.
  const bool covers = isOpaque() && !cornerRadius_ && bgColor_->resolve(appearanceOf(this)).alpha() == 255;
  setAttribute(Qt::WA_OpaquePaintEvent, covers);
}

void BoxView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (bgColor_) paintBackground(painter);
  if (!frameColor_) return;
  const QColor color = frameColor_->resolve(appearanceOf(this));
  if (boxEdges_) {
    paintEdges(painter, *boxEdges_, color);
  } else {
    paintFrame(painter, color);
  }
}

void BoxView::paintBackground(QPainter& painter) const {
  const QColor color = bgColor_->resolve(appearanceOf(this));
  if (!cornerRadius_) {
    painter.fillRect(rect(), color);
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(rect(), *cornerRadius_, *cornerRadius_);
}

void BoxView::paintFrame(QPainter& painter, const QColor& color) const {
  PixelBox(painter, rect()).frame(std::max(1.0, lineWidth_), color);
}

void BoxView::paintEdges(QPainter& painter, const BoxEdges& edges, const QColor& color) const {
  const PixelBox box(painter, rect());
  if (edges.right) box.edge(Qt::RightEdge, lineWidth_, color);
  if (edges.top) box.edge(Qt::BottomEdge, lineWidth_, color);
  if (edges.bottom) box.edge(Qt::TopEdge, lineWidth_, color);
  if (!edges.left) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, lineWidth_));
  const QRectF bounds = rect();
  painter.drawLine(bounds.topLeft(), bounds.bottomRight());
}

void BoxView::mousePressEvent(QMouseEvent* event) {
  if (delegate_ && event->button() == Qt::LeftButton) return delegate_->mouseDown(*event);
  if (delegate_ && event->button() == Qt::RightButton) return delegate_->rightMouseDown(*event);
  QWidget::mousePressEvent(event);
}

}  // namespace tarvel
