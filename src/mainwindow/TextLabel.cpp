#include "mainwindow/TextLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "mainwindow/ToolTips.h"

namespace tarvel {
namespace {

// So that an empty label is as high as a line.
const QString kSomeLetter = QStringLiteral("X");

int pixels(double length) {
  return static_cast<int>(std::ceil(length));
}

}  // namespace

TextLabel::TextLabel(const TextAttributes& attributes, Lines lines, QWidget* parent)
    : QLabel(parent), attributes_(attributes), lines_(lines) {
  setTextFormat(Qt::PlainText);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(lines == Lines::several);
  setSizePolicy(policy);
}

void TextLabel::setTextUtf8(const std::string& newText) {
  const QString text = QString::fromStdString(newText);
  if (text == this->text()) return;
  setText(text);
  updateGeometry();
}

QSize TextLabel::sizeHint() const {
  const Size size = boundingRect(attributedText(), {}, TextFit::wrap);
  return {pixels(size.width), std::max(pixels(size.height), minimumSizeHint().height())};
}

QSize TextLabel::minimumSizeHint() const {
  return {0, pixels(boundingRect({kSomeLetter, attributes_}, {}, TextFit::wrap).height)};
}

int TextLabel::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const Size limit{static_cast<double>(std::max(1, width - margins.left() - margins.right())), 0.0};
  return std::max(pixels(boundingRect(attributedText(), limit, TextFit::wrap).height),
                  minimumSizeHint().height());
}

void TextLabel::paintEvent(QPaintEvent*) {
  const QRect area = contentsRect();
  const Size room{static_cast<double>(area.width()), static_cast<double>(area.height())};
  const AttributedText text = attributedText();
  const double height = boundingRect(text, room, TextFit::wrapAndTruncate).height;
  QPainter painter(this);
  draw(painter,
       {static_cast<double>(area.x()), area.y() + std::floor((room.height - height) / 2), room.width, height},
       text, TextFit::wrapAndTruncate, appearanceOf(this));
}

bool TextLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
    const bool cut =
        sizeHint().width() > width() && (lines_ == Lines::one || heightForWidth(width()) > height());
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? plainToolTip(text()) : QString(),
                       this);
    return true;
  }
  return QLabel::event(event);
}

}  // namespace tarvel
