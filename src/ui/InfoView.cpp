#include "ui/InfoView.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "ui/AccessibleFactory.h"

namespace tarvel {

InfoView::InfoView(QWidget* parent) : BoxView(parent) {
  setAccessibleRole(*this, QAccessible::StaticText);
}

void InfoView::setText(std::optional<AttributedText> text) {
  text_ = std::move(text);
  setAccessibleName(text_ ? text_->plainText() : QString());
  update();
}

void InfoView::paintEvent(QPaintEvent* event) {
  BoxView::paintEvent(event);
  const Size room{width() - 2 * kSideMargin, static_cast<double>(height())};
  if (!text_ || room.width <= 0.0 || room.height <= 0.0) return;
  const double textHeight = boundingRect(*text_, room, TextFit::wrap).height;
  QPainter painter(this);
  draw(painter, {kSideMargin, (room.height - textHeight) * 0.5, room.width, textHeight}, *text_,
       TextFit::wrapAndTruncate, appearanceOf(this));
}

void InfoView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (doubleClickAction_ && event->button() == Qt::LeftButton) return doubleClickAction_(*this);
  BoxView::mouseDoubleClickEvent(event);
}

}  // namespace tarvel
