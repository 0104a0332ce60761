#pragma once
#include <QPushButton>

#include "ui/NamedColors.h"

namespace tarvel {

/// A button that shows a symbol of the assets, whose colour follows the window's appearance. A click doesn't
/// take the keyboard from the list or page that has it; the tab key reaches the button.
class IconButton : public QPushButton {
  Q_OBJECT
 public:
  /// `name` says to screen readers, and in the tooltip, what the button does.
  IconButton(std::string_view symbol, const QString& name, QWidget* parent = nullptr);
  /// The symbol is a name of a constant text.
  void setSymbol(std::string_view symbol, NamedColor tint);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void updateIcon();

  std::string_view symbol_;
  NamedColor tint_ = kLabel;
};

}  // namespace tarvel
