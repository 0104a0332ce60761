#pragma once
#include <QPushButton>

namespace tarvel {

/// A button with a title and some room around it, which also the return key presses. A child of the parent.
QPushButton* makeTextButton(const QString& title, QWidget* parent);

}  // namespace tarvel
