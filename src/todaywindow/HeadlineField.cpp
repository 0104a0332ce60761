#include "todaywindow/HeadlineField.h"

#include <QPainter>

#include "ui/AccessibleFactory.h"

namespace tarvel {

HeadlineField::HeadlineField(const TextAttributes& attributes, QWidget* parent)
    : QWidget(parent), attributes_(attributes) {
  attributes_.paragraph = kRightStyle;
  setAccessibleRole(*this, QAccessible::StaticText);
}

void HeadlineField::setText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleDescription(QString::fromStdString(text));
  update();
}

void HeadlineField::setFontSize(double size) {
  if (size == attributes_.fontSize) return;
  attributes_.fontSize = size;
  update();
}

void HeadlineField::paintEvent(QPaintEvent*) {
  if (text_.empty()) return;
  QPainter painter(this);
  const FixedTextScale sizeOfTheBand;
  const AttributedText line(text_, attributes_);
  const double textHeight = boundingRect(line, {}, TextFit::wrap).height;
  tarvel::draw(painter, {0.0, (height() - textHeight) / 2, static_cast<double>(width()), textHeight}, line,
               TextFit::wrapAndTruncate, appearanceOf(this));
}

}  // namespace tarvel
