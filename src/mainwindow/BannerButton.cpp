#include "mainwindow/BannerButton.h"

#include <QPainter>

#include "ui/Icons.h"

namespace tarvel {
namespace {

constexpr int kSide = 28;
constexpr int kSymbolSize = 14;
constexpr double kCornerRadius = 5.0;
constexpr double kFocusLine = 2.0;
constexpr double kHoverAlpha = 0.16;
constexpr double kPressedAlpha = 0.30;
constexpr double kDisabledAlpha = 0.40;

QColor paleWhite(double alpha) {
  QColor white = Qt::white;
  white.setAlphaF(static_cast<float>(alpha));
  return white;
}

}  // namespace

BannerButton::BannerButton(std::string_view symbol, const QString& name, QWidget* parent)
    : QAbstractButton(parent), symbol_(symbol) {
  resize(kSide, kSide);
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(name);
  setToolTip(name);
}

QSize BannerButton::sizeHint() const {
  return {kSide, kSide};
}

void BannerButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void BannerButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void BannerButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (isEnabled() && (isDown() || underMouse())) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(paleWhite(isDown() ? kPressedAlpha : kHoverAlpha));
    painter.drawRoundedRect(rect(), kCornerRadius, kCornerRadius);
  }
  if (hasFocus()) {
    painter.setPen(QPen(Qt::white, kFocusLine));
    painter.setBrush(Qt::NoBrush);
    const double inset = kFocusLine / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCornerRadius,
                            kCornerRadius);
  }
  if (!isEnabled()) painter.setOpacity(kDisabledAlpha);
  painter.drawPixmap(QPoint((width() - kSymbolSize) / 2, (height() - kSymbolSize) / 2),
                     tarvel::icon(symbol_, Qt::white, kSymbolSize, devicePixelRatioF()));
}

}  // namespace tarvel
