#include "auxwindows/AlertMessageView.h"

#include <QEvent>
#include <QPainter>

#include "auxwindows/AlertPanelWindowController.h"
#include "ui/AccessibleFactory.h"

namespace tarvel {

AlertMessageView::AlertMessageView(AlertPanelWindowController& windowController, QWidget* parent)
    : QWidget(parent), windowController_(windowController) {
  setAccessibleRole(*this, QAccessible::AlertMessage);
}

void AlertMessageView::setText(const AttributedText& text) {
  text_ = text;
  setAccessibleName(text_.plainText());
  update();
}

void AlertMessageView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // Letters of another size need another panel.
  if (event->type() == QEvent::FontChange && isVisible()) windowController_.fitText();
}

void AlertMessageView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  draw(painter, {0.0, 0.0, double(width()), double(height())}, text_, TextFit::wrap, appearanceOf(this));
}

}  // namespace tarvel
