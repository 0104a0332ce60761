#include "auxwindows/AlertMessageView.h"

#include <QPainter>

namespace tarvel {

AlertMessageView::AlertMessageView(AlertPanelWindowController& windowController, QWidget* parent)
    : QWidget(parent), windowController_(windowController) {}

void AlertMessageView::setText(const AttributedText& text) {
  text_ = text;
  setAccessibleName(text_.plainText());
  update();
}

void AlertMessageView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  draw(painter, {0.0, 0.0, double(width()), double(height())}, text_, TextFit::wrap, appearanceOf(this));
}

}  // namespace tarvel
