#include "ui/IconButton.h"

#include <QEvent>

#include "ui/Icons.h"

namespace tarvel {
namespace {

constexpr int kSymbolSize = 16;
constexpr int kWidth = 34;
constexpr int kHeight = 28;

}  // namespace

IconButton::IconButton(std::string_view symbol, const QString& name, QWidget* parent)
    : QPushButton(parent), symbol_(symbol) {
  setFixedSize(kWidth, kHeight);
  setIconSize({kSymbolSize, kSymbolSize});
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(name);
  setToolTip(name);
  updateIcon();
}

void IconButton::setSymbol(std::string_view symbol, NamedColor tint) {
  if (symbol == symbol_ && tint == tint_) return;
  symbol_ = symbol;
  tint_ = tint;
  updateIcon();
}

void IconButton::updateIcon() {
  setIcon(buttonIcon(symbol_, color(tint_, this), kSymbolSize));
}

void IconButton::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) updateIcon();
}

}  // namespace tarvel
