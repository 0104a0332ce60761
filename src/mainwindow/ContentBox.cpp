#include "mainwindow/ContentBox.h"

#include <QEvent>
#include <QPainter>

namespace tarvel {
namespace {

constexpr double kCornerRadius = 4.0;

}  // namespace

void ContentBox::showFocusOf(QWidget& view) {
  focusView_ = &view;
  view.installEventFilter(this);
}

bool ContentBox::showsFocus() const {
  // For those who go about by the keyboard, as long as they do.
  return focusView_ && focusView_->hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

bool ContentBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::eventFilter(watched, event);
}

void ContentBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color(showsFocus() ? kKeyboardFocusIndicator : kContentBorder, this));
  painter.setBrush(color(background_, this));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
}

}  // namespace tarvel
