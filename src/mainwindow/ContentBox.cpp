#include "mainwindow/ContentBox.h"

#include <QPainter>

namespace tarvel {
namespace {

constexpr double kCornerRadius = 4.0;

}  // namespace

void ContentBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color(kContentBorder, this));
  painter.setBrush(color(background_, this));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
}

}  // namespace tarvel
